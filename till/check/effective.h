#pragma once

#include "till/check/finding.h"
#include "till/check/settingfiles.h"

#include <QString>

namespace till::check {

/// What counts: the values of `Singleton<Config>`, otherwise the defaults of the schema.
///
/// Refers to the files, which must outlive it.
class Effective
{
public:
    explicit Effective(const SettingFiles &files)
        : m_files(files)
    { }

    /// Whether the configuration has the key.
    [[nodiscard]] bool isSet(const QString &name) const;
    /// The value, or the default of the schema without its quotes; empty where that has none.
    [[nodiscard]] QString text(const QString &name) const;
    /// The same, as a path; relative ones are relative to the file that they stand in.
    [[nodiscard]] QString path(const QString &name) const;
    /// The same as a number; the default where the value is malformed.
    [[nodiscard]] double number(const QString &name) const;
    [[nodiscard]] bool boolean(const QString &name) const;
    [[nodiscard]] QStringList items(const QString &name) const;

    /// Where the value that counts stands; only the key where it is a default.
    [[nodiscard]] Place place(const QString &name) const;
    /// A finding in the configuration, at the place of the key.
    [[nodiscard]] Finding finding(
        Severity severity, const QString &name, const tr::Tr &what, const tr::Tr &remedy) const;

private:
    const SettingFiles &m_files;
};

} // namespace till::check

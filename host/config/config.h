#pragma once

#include "host/export.h"
#include "host/framework/singleton.h"

#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>

#include <stdexcept>

/// A configuration file that cannot be used; `what()` says file, line, column and why.
class POSHOST_EXPORT ConfigError : public std::runtime_error
{
public:
    explicit ConfigError(const QString &text);
    ~ConfigError() override;
};

/// The settings of the till and its plug-ins. `Singleton<Config>::instance()`.
///
/// Keys are "Section:key". A default counts only when the key is absent. Files are read once, by
/// `load`; the default constructor gives an empty configuration. Values come as they stand in the
/// file, without escapes; a value in double quotes keeps its outer blanks, and "@file:/path" reads
/// the value from that file (its trailing line break left out). A malformed number or boolean gives
/// the default and one warning that names file, line and key.
class POSHOST_EXPORT Config
{
public:
    Config() = default;
    virtual ~Config();
    Q_DISABLE_COPY_MOVE(Config)

    /// Reads the file and then, over it, the `*.ini` files of the folder "<file>.d" in name order.
    /// @param fileName path of an INI file in UTF-8.
    /// @throws ConfigError when a file cannot be read or a line is no section, setting, comment or
    ///         blank; the configuration is then as it was before.
    void load(const QString &fileName);
    /// Sets one value over everything that was read; for tests and command-line options.
    void set(const QString &key, const QString &value);
    /// Path of the file that `load` was given; empty before.
    [[nodiscard]] QString fileName() const { return m_fileName; }
    /// Warnings so far, one per malformed value, as "file:line: …".
    [[nodiscard]] QStringList warnings() const { return m_warnings; }

    [[nodiscard]] virtual bool contains(const QString &key) const;
    [[nodiscard]] virtual QString getString(const QString &key, const QString &defaultValue) const;
    /// A decimal integer of 32 bits.
    [[nodiscard]] virtual int getInt(const QString &key, int defaultValue) const;
    /// "true", "yes", "on", "1" or "false", "no", "off", "0", in any case.
    [[nodiscard]] virtual bool getBool(const QString &key, bool defaultValue) const;
    [[nodiscard]] virtual double getDouble(const QString &key, double defaultValue) const;
    /// Split at commas, trimmed, empty items dropped: an empty value is an empty list.
    [[nodiscard]] virtual QStringList getStringList(
        const QString &key, const QStringList &defaultValue) const;
    /// Split likewise; items that are no integers are dropped with a warning.
    [[nodiscard]] virtual QList<int> getIntList(
        const QString &key, const QList<int> &defaultValue) const;
    /// Names of the sections that match a wildcard pattern ("*", "?"), in file order.
    [[nodiscard]] virtual QStringList getSections(const QString &pattern) const;
    /// Keys of a section, without its name, in file order.
    [[nodiscard]] virtual QStringList getKeys(const QString &section) const;
    /// The value as a path: relative ones are relative to the folder of the file it stands in.
    [[nodiscard]] QString getPath(const QString &key, const QString &defaultValue) const;

private:
    struct Value
    {
        QString text;
        QString fileName;
        int line = 0;
    };
    struct Section
    {
        QString name;
        QStringList keys;
        QMap<QString, Value> values;
    };

    [[nodiscard]] const Value *find(const QString &key) const;
    void warn(const QString &key, const Value &value, const QString &expected) const;

    QString m_fileName;
    QList<Section> m_sections;
    mutable QStringList m_warnings;
};

extern template class POSHOST_EXPORT Singleton<Config>;

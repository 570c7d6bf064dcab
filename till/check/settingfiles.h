#pragma once

#include "host/config/inifile.h"
#include "till/check/finding.h"

#include <QHash>
#include <QList>
#include <QString>

namespace till::check {

/// One line "key=value" of a configuration. A record of values.
struct Written
{
    QString file;
    int line = 0;
    QString section;
    QString key;
    QString text; ///< as it stands: "@file:…" is not followed, quotes are not taken off

    [[nodiscard]] QString name() const { return section + u':' + key; }
    [[nodiscard]] Place place() const { return {file, line, name()}; }
};

/// The files of a configuration as they stand: the main one, then those that lie over it, in the
/// order in which `Config` reads them.
class SettingFiles
{
public:
    /// Reads them; what cannot be read is found in `unreadable`.
    /// @param fileName of the main file; empty: there is none.
    explicit SettingFiles(const QString &fileName);

    struct Section
    {
        QString file;
        int line = 0;
        QString name;
    };

    /// In the order of files and lines.
    [[nodiscard]] const QList<Written> &lines() const { return m_lines; }
    [[nodiscard]] const QList<Section> &sections() const { return m_sections; }
    /// Lines that are none, and files that cannot be read.
    [[nodiscard]] const Findings &unreadable() const { return m_unreadable; }
    /// The line that counts for a key, the last one; null when none has it.
    [[nodiscard]] const Written *find(const QString &name) const;

private:
    void read(const QString &fileName);

    QList<Written> m_lines;
    QHash<QString, qsizetype> m_counting; ///< the last of each name
    QList<Section> m_sections;
    Findings m_unreadable;
};

} // namespace till::check

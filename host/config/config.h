#pragma once

#include "host/config/configerror.h"
#include "host/export.h"
#include "host/framework/singleton.h"

#include <QHash>
#include <QList>
#include <QMap>
#include <QSet>
#include <QString>
#include <QStringList>

/// The settings of the till and its plug-ins. `Singleton<Config>::instance()`.
///
/// Keys are "Section:key", the section being what stands before the first ":"; upper and lower case
/// differ. A default counts only when the key is absent. Files are read once, by `load`; the
/// default constructor gives an empty configuration. Values come as they stand in the file, without
/// escapes; a value in double quotes keeps its outer blanks, and "@file:/path" (not in quotes)
/// reads the value from that file in UTF-8, its trailing line break left out; a relative path
/// starts at the folder of the file that names it. A malformed number or boolean, the empty value
/// included, gives the default and one warning, which names file, line and key and also goes to the
/// logger "poshost.config". To be used from the host's thread only.
class POSHOST_EXPORT Config
{
public:
    Config() = default;
    virtual ~Config();
    Q_DISABLE_COPY_MOVE(Config)

    /// Reads the file and then, over it, the `*.ini` files of the folder "<file>.d" in name order.
    /// What an earlier `load` read is forgotten.
    /// @param fileName path of an INI file in UTF-8.
    /// @throws ConfigError when a file cannot be read or a line is no section, setting, comment or
    ///         blank; the configuration is then as it was before.
    void load(const QString &fileName);
    /// Sets one value over everything that was or will be read, as it is, without quotes and
    /// "@file:"; for tests and command-line options.
    void set(const QString &key, const QString &value);
    /// Path of the file that `load` was given; empty before.
    [[nodiscard]] QString fileName() const { return m_fileName; }
    /// Every file that `load` read: the main one, those over it, and those of values "@file:".
    [[nodiscard]] QStringList fileNames() const { return m_fileNames; }
    /// Warnings so far, one per malformed value and per key given twice in one file, as
    /// "file:line: …".
    [[nodiscard]] QList<tr::Tr> warnings() const { return m_warnings; }
    /// Tells the logger the warnings so far once more: those of `load` came before the log was set
    /// up, whose folder the settings name.
    void logWarnings() const;

    [[nodiscard]] virtual bool contains(const QString &key) const;
    [[nodiscard]] virtual QString getString(const QString &key, const QString &defaultValue) const;
    /// A decimal integer of 32 bits.
    [[nodiscard]] virtual int getInt(const QString &key, int defaultValue) const;
    /// "true", "yes", "on", "1" or "false", "no", "off", "0", in any case.
    [[nodiscard]] virtual bool getBool(const QString &key, bool defaultValue) const;
    /// A finite decimal number with a point.
    [[nodiscard]] virtual double getDouble(const QString &key, double defaultValue) const;
    /// Split at commas, trimmed, empty items dropped: an empty value is an empty list.
    [[nodiscard]] virtual QStringList getStringList(
        const QString &key, const QStringList &defaultValue) const;
    /// Split likewise; items that are no integers are dropped with a warning.
    [[nodiscard]] virtual QList<int> getIntList(
        const QString &key, const QList<int> &defaultValue) const;
    /// Names of the sections that match a wildcard pattern ("*", "?"), in file order.
    [[nodiscard]] virtual QStringList getSections(const QString &pattern) const;
    /// Keys of a section, without its name, in file order; none when there is no such section.
    [[nodiscard]] virtual QStringList getKeys(const QString &section) const;
    /// Where the value stands, as "file:line"; empty for one from `set` and where there is none.
    [[nodiscard]] QString placeOf(const QString &key) const;
    /// The value as a path: relative ones are relative to the folder of the file that the setting
    /// stands in. The default, an empty value and a value from `set` come as they are.
    [[nodiscard]] QString getPath(const QString &key, const QString &defaultValue) const;

private:
    struct Value
    {
        QString text;
        QString fileName; ///< empty for what was set
        int line = 0;
    };
    struct Section
    {
        QString name;
        QStringList keys;
        QMap<QString, Value> values;
    };
    /// In the order of the files; they are found by name however many there are.
    class Sections
    {
    public:
        [[nodiscard]] const Section *find(const QString &name) const;
        /// Adds it where there is none.
        Section &of(const QString &name);
        void put(const QString &name, const QString &key, const Value &value);

        [[nodiscard]] auto begin() const { return m_sections.cbegin(); }
        [[nodiscard]] auto end() const { return m_sections.cend(); }

    private:
        QList<Section> m_sections;
        QHash<QString, qsizetype> m_places;
    };
    /// Everything that one `load` reads; put in place when it has read all of it.
    struct Contents
    {
        Sections sections;
        QList<tr::Tr> warnings;
        QStringList fileNames;
    };

    static void readFile(const QString &fileName, Contents &contents);
    [[nodiscard]] const Value *find(const QString &key) const;
    void warn(const QString &key, const tr::Tr &problem) const;
    template <typename T, typename Reader>
    [[nodiscard]] T read(
        const QString &key, T defaultValue, const tr::Tr &malformed, Reader reader) const;

    QString m_fileName;
    QStringList m_fileNames;
    Sections m_sections;
    mutable QList<tr::Tr> m_warnings;
    mutable QSet<QString> m_warnedKeys;
};

extern template class POSHOST_EXPORT Singleton<Config>;

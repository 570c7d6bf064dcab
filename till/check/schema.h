#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace till::check {

/// What a value means.
enum class ValueType
{
    Text,
    Mask,
    Url,
    Choice,
    Integer,
    Amount,
    Boolean,
    List, ///< of texts
    Integers, ///< a list of them
    File,
    Folder,
    Database, ///< a file, or the address of a server
};

/// What of a value nobody else may know.
enum class Secret
{
    None,
    Value, ///< all of it
    Address, ///< the password that may stand in it
};

/// One setting as config/settings.json describes it. A record of values.
struct Setting
{
    QString section; ///< may be a wildcard pattern
    QString key; ///< may be a wildcard pattern
    ValueType type = ValueType::Text;
    QString unit; ///< in English; empty: none
    std::optional<double> minimum;
    std::optional<double> maximum;
    QStringList values; ///< of a choice
    QStringList properties; ///< "object.property" that a mask may name; the object may be a pattern
    std::optional<QString> defaultValue; ///< as a file would have it; empty: see `absent`
    QString absentRussian; ///< what counts without a value, in words
    QString absentEnglish;
    QString example;
    QString effectRussian;
    QString effectEnglish;
    Secret secret = Secret::None;

    [[nodiscard]] QString name() const { return section + u':' + key; }
};

/// Every setting of host, till and plug-in, read from what is built in. Immutable.
class Schema
{
public:
    /// Read once; valid to the end of the program.
    [[nodiscard]] static const Schema &instance();
    /// The same from other data.
    /// @throws nlohmann::json::exception when it is not as config/settings.json.
    explicit Schema(const QByteArray &json);

    [[nodiscard]] const QList<Setting> &settings() const { return m_settings; }
    /// Names and patterns of the sections, in their order.
    [[nodiscard]] const QStringList &sections() const { return m_sections; }
    [[nodiscard]] bool hasSection(const QString &section) const;
    /// The setting that a key of a configuration is; null when it is none.
    [[nodiscard]] const Setting *find(const QString &section, const QString &key) const;
    /// The same by "Section:key".
    [[nodiscard]] const Setting *find(const QString &name) const;

private:
    QList<Setting> m_settings;
    QStringList m_sections;
};

} // namespace till::check

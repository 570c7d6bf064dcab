#include "till/check/schema.h"

#include "host/config/valuereaders.h"

#include <QFile>
#include <QMap>

#include <nlohmann/json.hpp>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace till::check {

namespace {

using Json = nlohmann::json;

ValueType typeNamed(const std::string &name)
{
    static const QMap<QString, ValueType> types{{u"text"_s, ValueType::Text},
        {u"mask"_s, ValueType::Mask}, {u"url"_s, ValueType::Url}, {u"choice"_s, ValueType::Choice},
        {u"integer"_s, ValueType::Integer}, {u"amount"_s, ValueType::Amount},
        {u"boolean"_s, ValueType::Boolean}, {u"list"_s, ValueType::List},
        {u"integers"_s, ValueType::Integers}, {u"file"_s, ValueType::File},
        {u"folder"_s, ValueType::Folder}, {u"database"_s, ValueType::Database}};
    return types.value(QString::fromStdString(name));
}

Secret secretNamed(const QString &name)
{
    if (name == u"value"_s)
        return Secret::Value;
    return name == u"address"_s ? Secret::Address : Secret::None;
}

QString textOf(const Json &object, const char *member)
{
    return QString::fromStdString(object.value(member, std::string()));
}

QString textOf(const Json &object, const char *member, const char *language)
{
    return object.contains(member) ? textOf(object[member], language) : QString();
}

QStringList textsOf(const Json &object, const char *member)
{
    QStringList texts;
    for (const std::string &text : object.value(member, std::vector<std::string>()))
        texts.append(QString::fromStdString(text));
    return texts;
}

std::optional<double> numberOf(const Json &object, const char *member)
{
    return object.contains(member) ? std::optional(object[member].get<double>()) : std::nullopt;
}

Setting settingOf(const QString &section, const Json &object)
{
    Setting setting;
    setting.section = section;
    setting.key = textOf(object, "key");
    setting.type = typeNamed(object.at("type").get<std::string>());
    setting.unit = textOf(object, "unit");
    setting.minimum = numberOf(object, "minimum");
    setting.maximum = numberOf(object, "maximum");
    setting.values = textsOf(object, "values");
    setting.properties = textsOf(object, "properties");
    if (!object.at("default").is_null())
        setting.defaultValue = textOf(object, "default");
    setting.absentRussian = textOf(object, "absent", "ru");
    setting.absentEnglish = textOf(object, "absent", "en");
    setting.example = textOf(object, "example");
    setting.effectRussian = textOf(object, "effect", "ru");
    setting.effectEnglish = textOf(object, "effect", "en");
    setting.secret = secretNamed(textOf(object, "secret"));
    return setting;
}

QByteArray builtIn()
{
    QFile file(u":/korvel/config/settings.json"_s);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("the schema of the settings is missing in the program");
    return file.readAll();
}

} // namespace

const Schema &Schema::instance()
{
    static const Schema schema(builtIn());
    return schema;
}

Schema::Schema(const QByteArray &json)
{
    const Json schema = Json::parse(json.toStdString());
    for (const Json &section : schema.at("sections")) {
        m_sections.append(textOf(section, "name"));
        for (const Json &setting : section.at("settings"))
            m_settings.append(settingOf(m_sections.constLast(), setting));
    }
}

bool Schema::hasSection(const QString &section) const
{
    return std::any_of(m_sections.cbegin(), m_sections.cend(),
        [&section](const QString &known) { return config::matchesWildcard(section, known); });
}

const Setting *Schema::find(const QString &section, const QString &key) const
{
    for (const Setting &setting : m_settings)
        if (config::matchesWildcard(section, setting.section)
            && config::matchesWildcard(key, setting.key))
            return &setting;
    return nullptr;
}

const Setting *Schema::find(const QString &name) const
{
    return find(name.section(u':', 0, 0), name.section(u':', 1));
}

} // namespace till::check

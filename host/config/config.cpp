#include "host/config/config.h"

template class Singleton<Config>;

ConfigError::ConfigError(const QString &text)
    : std::runtime_error(text.toStdString())
{ }

ConfigError::~ConfigError() = default;

Config::~Config() = default;

void Config::load(const QString &) { }

void Config::set(const QString &key, const QString &value)
{
    const QString name = key.section(u':', 0, 0);
    const QString entry = key.section(u':', 1);
    auto section = std::find_if(m_sections.begin(), m_sections.end(),
        [&name](const Section &other) { return other.name == name; });
    if (section == m_sections.end())
        section = m_sections.insert(m_sections.end(), Section{name, {}, {}});
    if (!section->keys.contains(entry))
        section->keys.append(entry);
    section->values[entry] = Value{value, {}, 0};
}

const Config::Value *Config::find(const QString &key) const
{
    const QString name = key.section(u':', 0, 0);
    const QString entry = key.section(u':', 1);
    for (const Section &section : m_sections)
        if (const auto value = section.values.constFind(entry);
            section.name == name && value != section.values.constEnd())
            return &*value;
    return nullptr;
}

void Config::warn(const QString &key, const Value &, const QString &expected) const
{
    m_warnings.append(key + expected);
}

bool Config::contains(const QString &key) const
{
    return find(key) != nullptr;
}

QString Config::getString(const QString &key, const QString &defaultValue) const
{
    const Value *value = find(key);
    return value ? value->text : defaultValue;
}

int Config::getInt(const QString &key, int defaultValue) const
{
    bool ok = false;
    const int number = getString(key, {}).toInt(&ok);
    return ok ? number : defaultValue;
}

bool Config::getBool(const QString &key, bool defaultValue) const
{
    return contains(key) ? getString(key, {}) == QStringLiteral("true") : defaultValue;
}

double Config::getDouble(const QString &key, double defaultValue) const
{
    bool ok = false;
    const double number = getString(key, {}).toDouble(&ok);
    return ok ? number : defaultValue;
}

QStringList Config::getStringList(const QString &key, const QStringList &defaultValue) const
{
    if (!contains(key))
        return defaultValue;
    QStringList items;
    for (const QString &item : getString(key, {}).split(u',', Qt::SkipEmptyParts))
        items.append(item.trimmed());
    return items;
}

QList<int> Config::getIntList(const QString &key, const QList<int> &defaultValue) const
{
    if (!contains(key))
        return defaultValue;
    QList<int> items;
    for (const QString &item : getStringList(key, {}))
        items.append(item.toInt());
    return items;
}

QStringList Config::getSections(const QString &pattern) const
{
    QStringList names;
    for (const Section &section : m_sections)
        if (section.name.startsWith(QString(pattern).remove(u'*')))
            names.append(section.name);
    return names;
}

QStringList Config::getKeys(const QString &name) const
{
    for (const Section &section : m_sections)
        if (section.name == name)
            return section.keys;
    return {};
}

QString Config::getPath(const QString &key, const QString &defaultValue) const
{
    return getString(key, defaultValue);
}

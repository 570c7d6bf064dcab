#include "host/config/config.h"

#include "host/config/inifile.h"
#include "host/config/valuereaders.h"
#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <optional>
#include <utility>

template class Singleton<Config>;

using namespace Qt::Literals::StringLiterals;

namespace {

const QString fileMark = u"@file:"_s;
const QString overlayFolderSuffix = u".d"_s;

QString sectionPart(const QString &key)
{
    return key.section(u':', 0, 0);
}

QString keyPart(const QString &key)
{
    return key.section(u':', 1);
}

QString besideFile(const QString &path, const QString &fileName)
{
    return QFileInfo(fileName).dir().filePath(path);
}

QByteArray contentsOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw ConfigError(tr::Tr(u"configUnreadable"_s,
            u"%1: файл не читается: %2; проверьте его путь и права доступа"_s)
                              .arg(path)
                              .arg(file.errorString()));
    // Not all at once: a device never ends, a pipe gives a part at a time, and room for the longest
    // file would be made for each short one.
    constexpr qsizetype longestPart = 16'384;
    QByteArray contents;
    while (contents.size() <= ini::longestFile) {
        const QByteArray part = file.read(longestPart);
        if (part.isEmpty())
            return contents;
        contents += part;
    }
    throw ConfigError(tr::Tr(
        u"configTooLong"_s, u"%1: в файле больше %2 МиБ, это не настройки; проверьте его путь"_s)
                          .arg(path)
                          .arg(QString::number(ini::mostMebibytes)));
}

QString readValueFile(const QString &path)
{
    std::optional<QString> text = config::decoded(contentsOf(path));
    if (!text)
        throw ConfigError(
            tr::Tr(u"configNotUtf8"_s, u"%1: файл не в кодировке UTF-8; сохраните его в UTF-8"_s)
                .arg(path));
    if (text->endsWith(u'\n'))
        text->chop(1);
    if (text->endsWith(u'\r'))
        text->chop(1);
    return *text;
}

bool isQuoted(const QString &value)
{
    constexpr qsizetype bothQuotes = 2;
    return value.size() >= bothQuotes && value.startsWith(u'"') && value.endsWith(u'"');
}

/// The file that the value stands in; empty when it stands in the setting itself.
QString valueFile(const ini::Setting &setting, const QString &fileName)
{
    return setting.value.startsWith(fileMark)
        ? besideFile(setting.value.mid(fileMark.size()).trimmed(), fileName)
        : QString();
}

QString resolved(const ini::Setting &setting, const QString &fileName)
{
    if (isQuoted(setting.value))
        return setting.value.mid(1, setting.value.size() - 2);
    const QString path = valueFile(setting, fileName);
    if (path.isEmpty())
        return setting.value;
    try {
        return readValueFile(path);
    } catch (const ConfigError &error) {
        throw ConfigError(tr::Tr(tr::undefined, u"%1:%2:%3: %4"_s)
                              .arg(fileName)
                              .arg(QString::number(setting.line))
                              .arg(QString::number(setting.column))
                              .arg(error.tr()));
    }
}

tr::Tr malformedInteger()
{
    return {
        u"configMalformedInteger"_s, u"ожидалось целое число, действует значение по умолчанию"_s};
}

tr::Tr malformedBoolean()
{
    return {u"configMalformedBoolean"_s,
        u"ожидалось true или false, действует значение по умолчанию"_s};
}

tr::Tr malformedNumber()
{
    return {u"configMalformedNumber"_s, u"ожидалось число, действует значение по умолчанию"_s};
}

Log4Qt::Logger *logger()
{
    return Log4Qt::LogManager::logger(u"poshost.config"_s);
}

} // namespace

ConfigError::~ConfigError() = default;

Config::~Config() = default;

void Config::load(const QString &fileName)
{
    Contents contents;
    readFile(fileName, contents);
    const QDir overlays(fileName + overlayFolderSuffix);
    for (const QString &name : overlays.entryList({u"*.ini"_s}, QDir::Files, QDir::Name))
        readFile(overlays.filePath(name), contents);
    for (const Section &section : m_sections)
        for (const QString &key : section.keys)
            if (const Value &value = section.values[key]; value.fileName.isEmpty())
                contents.sections.put(section.name, key, value);

    m_fileName = fileName;
    m_fileNames.swap(contents.fileNames);
    m_sections = std::move(contents.sections);
    m_warnings.swap(contents.warnings);
    m_warnedKeys.clear();
    logWarnings();
}

void Config::logWarnings() const
{
    for (const tr::Tr &warning : std::as_const(m_warnings))
        logger()->warn(warning.ru());
}

void Config::readFile(const QString &fileName, Contents &contents)
{
    QMap<QString, int> lines;
    contents.fileNames.append(fileName);
    for (const ini::Section &section : ini::parse(contentsOf(fileName), fileName)) {
        contents.sections.of(section.name);
        for (const ini::Setting &setting : section.settings) {
            const QString name = section.name + u':' + setting.key;
            if (lines.contains(name))
                contents.warnings.append(tr::Tr(u"configKeyRepeated"_s,
                    u"%1:%2: ключ %3: уже задан в строке %4, действует этот"_s)
                                             .arg(fileName)
                                             .arg(QString::number(setting.line))
                                             .arg(name)
                                             .arg(QString::number(lines.value(name))));
            lines.insert(name, setting.line);
            if (const QString path = valueFile(setting, fileName); !path.isEmpty())
                contents.fileNames.append(path);
            contents.sections.put(
                section.name, setting.key, {resolved(setting, fileName), fileName, setting.line});
        }
    }
}

const Config::Section *Config::Sections::find(const QString &name) const
{
    const auto place = m_places.constFind(name);
    return place == m_places.cend() ? nullptr : &m_sections.at(*place);
}

Config::Section &Config::Sections::of(const QString &name)
{
    const auto place = m_places.constFind(name);
    if (place != m_places.cend())
        return m_sections[*place];
    m_places.insert(name, m_sections.size());
    return m_sections.emplaceBack(Section{name, {}, {}});
}

void Config::Sections::put(const QString &name, const QString &key, const Value &value)
{
    Section &section = of(name);
    if (!section.values.contains(key))
        section.keys.append(key);
    section.values.insert(key, value);
}

void Config::set(const QString &key, const QString &value)
{
    m_sections.put(sectionPart(key), keyPart(key), {value, {}, 0});
    m_warnedKeys.remove(key);
}

const Config::Value *Config::find(const QString &key) const
{
    const Section *section = m_sections.find(sectionPart(key));
    if (!section)
        return nullptr;
    const auto value = section->values.constFind(keyPart(key));
    return value == section->values.cend() ? nullptr : &*value;
}

void Config::warn(const QString &key, const tr::Tr &problem) const
{
    if (m_warnedKeys.contains(key))
        return;
    m_warnedKeys.insert(key);
    const QString place = placeOf(key);
    m_warnings.append(tr::Tr(u"configWarning"_s, u"%1ключ %2: %3"_s)
                          .arg(place.isEmpty() ? place : place + u": ")
                          .arg(key)
                          .arg(problem));
    logger()->warn(m_warnings.constLast().ru());
}

template <typename T, typename Reader>
T Config::read(const QString &key, T defaultValue, const tr::Tr &malformed, Reader reader) const
{
    const Value *value = find(key);
    if (!value)
        return defaultValue;
    const std::optional<T> result = reader(value->text);
    if (!result)
        warn(key, malformed);
    return result.value_or(defaultValue);
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
    return read(key, defaultValue, malformedInteger(), config::integer);
}

bool Config::getBool(const QString &key, bool defaultValue) const
{
    return read(key, defaultValue, malformedBoolean(), config::boolean);
}

double Config::getDouble(const QString &key, double defaultValue) const
{
    return read(key, defaultValue, malformedNumber(), config::number);
}

QStringList Config::getStringList(const QString &key, const QStringList &defaultValue) const
{
    const Value *value = find(key);
    return value ? config::items(value->text) : defaultValue;
}

QList<int> Config::getIntList(const QString &key, const QList<int> &defaultValue) const
{
    const Value *value = find(key);
    if (!value)
        return defaultValue;
    QList<int> result;
    for (const QString &item : config::items(value->text)) {
        if (const auto parsed = config::integer(item))
            result.append(*parsed);
        else
            warn(key,
                tr::Tr(u"configMalformedItem"_s,
                    u"ожидались целые числа через запятую, «%1» пропущено"_s)
                    .arg(item));
    }
    return result;
}

QStringList Config::getSections(const QString &pattern) const
{
    QStringList names;
    for (const Section &section : m_sections)
        if (config::matchesWildcard(section.name, pattern))
            names.append(section.name);
    return names;
}

QStringList Config::getKeys(const QString &section) const
{
    const Section *found = m_sections.find(section);
    return found ? found->keys : QStringList();
}

QString Config::placeOf(const QString &key) const
{
    const Value *value = find(key);
    return value && !value->fileName.isEmpty()
        ? QString(value->fileName + u':' + QString::number(value->line))
        : QString();
}

QString Config::getPath(const QString &key, const QString &defaultValue) const
{
    const Value *value = find(key);
    if (!value)
        return defaultValue;
    if (value->text.isEmpty() || value->fileName.isEmpty())
        return value->text;
    return besideFile(value->text, value->fileName);
}

#include "till/check/nearest.h"
#include "till/check/rules.h"
#include "till/check/schema.h"

#include <QMap>

using namespace Qt::StringLiterals;

namespace till::check {

namespace {

QStringList keysOf(const QString &section)
{
    QStringList keys;
    for (const Setting &setting : Schema::instance().settings())
        if (setting.section == section)
            keys.append(setting.key);
    return keys;
}

/// A key that stands in the wrong section, with the right one; empty where there is no such key.
QString inAnotherSection(const QString &key)
{
    for (const Setting &setting : Schema::instance().settings())
        if (setting.key.compare(key, Qt::CaseInsensitive) == 0)
            return setting.name();
    return {};
}

tr::Tr remedyFor(const Written &line)
{
    QString meant = nearest(line.key, keysOf(line.section));
    if (!meant.isEmpty())
        meant.prepend(line.section + u':');
    if (meant.isEmpty())
        meant = inAnotherSection(line.key);
    return meant.isEmpty()
        ? tr::Tr(u"checkKeySeeReference"_s, u"уберите его; все ключи описаны в docs/settings.md"_s)
        : tr::Tr(u"checkKeyMeant"_s, u"возможно, имелся в виду %1"_s).arg(meant);
}

Findings unknownSections(const SettingFiles &files)
{
    const Schema &schema = Schema::instance();
    Findings found;
    for (const SettingFiles::Section &section : files.sections()) {
        if (schema.hasSection(section.name))
            continue;
        const QString meant = nearest(section.name, schema.sections());
        found.append({Severity::Warning, Area::Configuration, {section.file, section.line, {}},
            tr::Tr(u"checkSectionUnknown"_s, u"секцию [%1] никто не читает"_s).arg(section.name),
            meant.isEmpty()
                ? tr::Tr(u"checkSectionSeeReference"_s,
                    u"уберите её; все секции описаны в docs/settings.md"_s)
                : tr::Tr(u"checkSectionMeant"_s, u"возможно, имелась в виду [%1]"_s).arg(meant)});
    }
    return found;
}

Findings unknownKeys(const SettingFiles &files)
{
    const Schema &schema = Schema::instance();
    Findings found;
    for (const Written &line : files.lines())
        if (schema.hasSection(line.section) && !schema.find(line.section, line.key))
            found.append({Severity::Warning, Area::Configuration, line.place(),
                {u"checkKeyUnknown"_s, u"такого ключа нет, значение ни на что не влияет"_s},
                remedyFor(line)});
    return found;
}

Findings sectionsOpenedTwice(const SettingFiles &files)
{
    QMap<QString, int> opened;
    Findings found;
    for (const SettingFiles::Section &section : files.sections()) {
        const QString name = section.file + u'\n' + section.name;
        if (opened.contains(name))
            found.append({Severity::Note, Area::Configuration, {section.file, section.line, {}},
                tr::Tr(u"checkSectionTwice"_s, u"секция [%1] уже начата в строке %2"_s)
                    .arg(section.name)
                    .arg(QString::number(opened[name])),
                {u"checkJoinSections"_s, u"соберите её настройки в одном месте"_s}});
        else
            opened.insert(name, section.line);
    }
    return found;
}

Finding covered(const Written &lower, const Written &upper)
{
    if (lower.file == upper.file)
        return {Severity::Warning, Area::Configuration, upper.place(),
            tr::Tr(u"checkKeyTwice"_s, u"ключ уже задан в строке %1, действует этот"_s)
                .arg(QString::number(lower.line)),
            {u"checkRemoveOne"_s, u"уберите лишнюю строку"_s}};
    return {Severity::Ok, Area::Configuration, upper.place(),
        tr::Tr(u"checkOverlaid"_s, u"действует вместо %1:%2"_s)
            .arg(lower.file)
            .arg(QString::number(lower.line)),
        {}};
}

Findings keysGivenTwice(const SettingFiles &files)
{
    QMap<QString, Written> given;
    Findings found;
    for (const Written &line : files.lines()) {
        if (const auto lower = given.constFind(line.name()); lower != given.cend())
            found.append(covered(*lower, line));
        given.insert(line.name(), line);
    }
    return found;
}

} // namespace

Findings judgeKeys(const SettingFiles &files)
{
    return unknownSections(files) + unknownKeys(files) + sectionsOpenedTwice(files)
        + keysGivenTwice(files);
}

} // namespace till::check

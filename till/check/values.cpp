#include "host/config/valuereaders.h"
#include "host/framework/spokenerror.h"
#include "host/queue/server/serveraddress.h"
#include "till/check/masks.h"
#include "till/check/rules.h"
#include "till/check/schema.h"

#include <QFileInfo>
#include <QUrl>

#include <limits>

using namespace Qt::StringLiterals;

namespace till::check {

namespace {

constexpr qsizetype shownLetters = 40;

/// What is wrong with one value, and what to do.
struct Complaint
{
    Severity severity = Severity::Error;
    tr::Tr what;
    tr::Tr remedy;
};

using Complaints = QList<Complaint>;

QString shown(const QString &value)
{
    return value.size() > shownLetters ? value.left(shownLetters) + u'…' : value;
}

tr::Tr exampleOf(const Setting &setting)
{
    return tr::Tr(u"checkForExample"_s, u"напишите, например, %1"_s).arg(setting.example);
}

Complaint malformed(const Setting &setting, const tr::Tr &what)
{
    return {Severity::Error, what, exampleOf(setting)};
}

QString rangeOf(const Setting &setting)
{
    const QString from = setting.minimum ? QString::number(*setting.minimum) : QString();
    const QString to = setting.maximum ? QString::number(*setting.maximum) : u"…"_s;
    return from + u" – "_s + to;
}

Complaints outOfRange(const Setting &setting, double value)
{
    constexpr double endless = std::numeric_limits<double>::infinity();
    if (value >= setting.minimum.value_or(-endless) && value <= setting.maximum.value_or(endless))
        return {};
    return {{Severity::Warning,
        tr::Tr(u"checkOutOfRange"_s, u"значение «%1» вне допустимых пределов %2"_s)
            .arg(QString::number(value))
            .arg(rangeOf(setting)),
        exampleOf(setting)}};
}

Complaints ofInteger(const Setting &setting, const QString &value)
{
    if (const auto number = config::integer(value))
        return outOfRange(setting, *number);
    return {malformed(setting,
        tr::Tr(u"checkNotInteger"_s, u"«%1» — не целое число, действует значение по умолчанию"_s)
            .arg(shown(value)))};
}

Complaints ofAmount(const Setting &setting, const QString &value)
{
    if (const auto number = config::number(value))
        return outOfRange(setting, *number);
    return {malformed(setting,
        tr::Tr(u"checkNotNumber"_s, u"«%1» — не число с точкой, действует значение по умолчанию"_s)
            .arg(shown(value)))};
}

Complaints ofBoolean(const Setting &setting, const QString &value)
{
    if (config::boolean(value))
        return {};
    return {malformed(setting,
        tr::Tr(
            u"checkNotBoolean"_s, u"«%1» — не true и не false, действует значение по умолчанию"_s)
            .arg(shown(value)))};
}

Complaints ofChoice(const Setting &setting, const QString &value)
{
    if (setting.values.contains(value))
        return {};
    return {{Severity::Error,
        tr::Tr(u"checkNotAmong"_s, u"значения «%1» нет, касса с ним не запустится"_s)
            .arg(shown(value)),
        tr::Tr(u"checkChoose"_s, u"выберите одно из %1"_s).arg(setting.values.join(u", "_s))}};
}

Complaints ofIntegers(const Setting &setting, const QString &value)
{
    Complaints found;
    for (const QString &item : config::items(value))
        if (!config::integer(item))
            found.append(malformed(setting,
                tr::Tr(u"checkNotIntegers"_s, u"«%1» в списке — не целое число"_s)
                    .arg(shown(item))));
    return found;
}

// Without the value: an address can hold a password.
Complaints ofUrl(const Setting &setting, const QString &value)
{
    const QUrl url(value);
    if (url.isValid() && !url.host().isEmpty()
        && (url.scheme() == u"http"_s || url.scheme() == u"https"_s))
        return {};
    return {malformed(setting, {u"checkNotUrl"_s, u"не адрес http или https"_s})};
}

Complaints ofDatabase(const QString &value)
{
    if (!ServerAddress::isMeantBy(value))
        return {};
    try {
        static_cast<void>(ServerAddress::read(value));
    } catch (const SpokenError &error) {
        return {{Severity::Error, {u"checkNotDatabase"_s, u"не адрес базы данных"_s}, error.tr()}};
    }
    return {};
}

Complaints ofMask(const Setting &setting, const QString &value)
{
    Complaints found;
    for (const MaskDefect &defect : defectsOfMask(value, setting.properties))
        found.append({Severity::Warning, defect.what, defect.remedy});
    return found;
}

Complaints ofFile(const QString &path)
{
    const QFileInfo info(path);
    if (info.isFile() && info.isReadable())
        return {};
    return {{Severity::Error,
        tr::Tr(u"checkFileMissing"_s, u"файла %1 нет или он не читается"_s).arg(path),
        {u"checkGiveRights"_s, u"проверьте его путь и права доступа"_s}}};
}

Complaints ofFolder(const QString &path)
{
    if (QFileInfo(path).isDir())
        return {};
    return {{Severity::Error, tr::Tr(u"checkFolderMissing"_s, u"папки %1 нет"_s).arg(path),
        {u"checkMakeFolder"_s, u"создайте её или исправьте путь"_s}}};
}

Complaints complaintsAbout(const Setting &setting, const QString &value, const QString &path)
{
    switch (setting.type) {
    case ValueType::Integer:
        return ofInteger(setting, value);
    case ValueType::Amount:
        return ofAmount(setting, value);
    case ValueType::Boolean:
        return ofBoolean(setting, value);
    case ValueType::Choice:
        return ofChoice(setting, value);
    case ValueType::Integers:
        return ofIntegers(setting, value);
    case ValueType::Url:
        return ofUrl(setting, value);
    case ValueType::Database:
        return ofDatabase(value);
    case ValueType::Mask:
        return ofMask(setting, value);
    // An empty path means that there is none.
    case ValueType::File:
        return value.isEmpty() ? Complaints() : ofFile(path);
    case ValueType::Folder:
        // The state folder is made when it is needed.
        return value.isEmpty() || setting.key == u"state"_s ? Complaints() : ofFolder(path);
    case ValueType::Text:
    case ValueType::List:
        break;
    }
    return {};
}

} // namespace

Findings judgeValues(const SettingFiles &files, const Effective &effective)
{
    Findings found;
    for (const Written &line : files.lines()) {
        const Setting *setting = Schema::instance().find(line.section, line.key);
        const Written *counting = files.find(line.name());
        if (!setting || counting->file != line.file || counting->line != line.line)
            continue;
        for (const Complaint &complaint :
            complaintsAbout(*setting, effective.text(line.name()), effective.path(line.name())))
            found.append({complaint.severity, Area::Configuration, line.place(), complaint.what,
                complaint.remedy});
    }
    return found;
}

Findings tellDefaults(const Effective &effective)
{
    Findings found;
    for (const Setting &setting : Schema::instance().settings()) {
        const bool isPattern = setting.name().contains(u'*');
        if (isPattern || effective.isSet(setting.name()))
            continue;
        found.append({Severity::Ok, Area::Configuration, {{}, 0, setting.name()},
            tr::Tr(u"checkDefault"_s, u"не задано, действует: %1"_s)
                .arg(setting.defaultValue.value_or(setting.absentRussian)),
            {}});
    }
    return found;
}

} // namespace till::check

#include "till/check/check.h"

#include "host/config/config.h"
#include "host/storage/privacy.h"
#include "till/check/listing.h"
#include "till/check/machine.h"
#include "till/check/rules.h"
#include "till/check/service.h"
#include "till/check/waitline.h"
#include "till/configuration.h"
#include "till/exitstatus.h"
#include "till/language/language.h"
#include "till/pluginloading.h"
#include "till/queue/output.h"

#include <QDir>
#include <QFileInfo>
#include <QUrl>

#include <algorithm>
#include <tuple>

using namespace Qt::StringLiterals;

namespace till::check {

namespace {

/// The file to be looked at; empty when there is none.
QString fileToCheck(const QString &given)
{
    QString file = configurationFile(given);
    if (!file.isEmpty() && !QFileInfo::exists(file))
        throw ConfigError(tr::Tr(u"checkConfigMissing"_s,
            u"%1: нет такого файла; укажите файл настроек через --config"_s)
                              .arg(file));
    return file;
}

/// What keeps the settings from being read; nothing when they were.
Findings load(const QString &file, const SettingFiles &files)
{
    if (file.isEmpty())
        return {};
    try {
        if (files.unreadable().isEmpty())
            Singleton<Config>::instance()->load(file);
    } catch (const ConfigError &error) {
        return {{Severity::Error, Area::Configuration, {file, 0, {}},
            {u"checkConfigUnusable"_s, u"настройки не читаются"_s}, error.tr()}};
    }
    return files.unreadable();
}

// A language that there is none of is found among the values.
void speakIfPossible()
{
    try {
        speakAsConfigured();
    } catch (const ConfigError &) {
        return;
    }
}

Findings ofConfiguration(const QString &file, const SettingFiles &files)
{
    const Effective effective(files);
    Findings found;
    if (file.isEmpty())
        found.append({Severity::Note, Area::Configuration, {},
            {u"checkNoConfig"_s, u"файла till.ini нет: действуют значения по умолчанию"_s},
            {u"checkNameConfig"_s, u"укажите файл настроек через --config"_s}});
    return found + judgeValues(files, effective) + judgeCombinations(files, effective)
        + judgeSafety(files, effective)
        + judgeCertificates(effective, QDateTime::currentDateTimeUtc()) + tellDefaults(effective);
}

/// What stands nowhere comes last.
Findings inFileOrder(Findings findings)
{
    const auto rank = [](const Finding &finding) {
        const Place &place = finding.place;
        return std::tuple(place.file.isEmpty(), place.file, place.line);
    };
    std::stable_sort(findings.begin(), findings.end(),
        [&rank](const Finding &left, const Finding &right) { return rank(left) < rank(right); });
    return findings;
}

Findings ofMachine(const Options &options, const Effective &effective)
{
    return judgeStateFolder(QDir::cleanPath(stateFolder(options.stateFolder)))
        + judgeCredentials(effective, codesetOfEnvironment()) + judgeCatalogue(effective)
        + judgeTemplates(effective) + judgePlugin(pluginFile(options.pluginFile));
}

Findings ofService(const Options &options, const Effective &effective)
{
    if (!options.asksService)
        return {{Severity::Note, Area::Service, {},
            {u"checkServiceSkipped"_s, u"сервис не проверен: --no-service"_s}, {}}};
    const QUrl url(effective.text(u"KorvelLoyaltyOnline:url"_s));
    const WaitLine line(stderr, tr::Tr(u"checkAsking"_s, u"сервис %1 отвечает…"_s).arg(url.host()));
    return judgeService(effective, options.card);
}

} // namespace

Findings findingsOf(const Options &options)
{
    privacy::leaveNoCore();
    const QString file = fileToCheck(options.configFile);
    const SettingFiles files(file);
    const Findings unusable = load(file, files);
    speakIfPossible();
    // Without its values nothing true can be said of machine and service.
    if (!unusable.isEmpty())
        return inFileOrder(unusable + judgeKeys(files));
    const Effective effective(files);
    return inFileOrder(judgeKeys(files) + ofConfiguration(file, files))
        + ofMachine(options, effective) + ofService(options, effective);
}

int check(const Options &options)
{
    const Findings found = findingsOf(options);
    if (options.json)
        print(findingsObject(found));
    else
        print(listing(found, Paint::forStream(stdout)));
    switch (worst(found)) {
    case Severity::Ok:
    case Severity::Note:
        return static_cast<int>(ExitStatus::Success);
    case Severity::Warning:
        return static_cast<int>(ExitStatus::NotAllDone);
    case Severity::Error:
        break;
    }
    return static_cast<int>(ExitStatus::CannotDo);
}

} // namespace till::check

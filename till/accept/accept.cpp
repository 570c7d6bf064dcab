#include "till/accept/accept.h"

#include "host/storage/privacy.h"
#include "till/accept/access.h"
#include "till/accept/flowreader.h"
#include "till/accept/reporttext.h"
#include "till/accept/runner.h"
#include "till/core/cannotdo.h"
#include "till/exitstatus.h"
#include "till/queue/output.h"
#include "till/queue/stoprequest.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace till::accept {

namespace {

QString protocolFolder(const Options &options)
{
    return options.protocolFolder.isEmpty() ? builtInProtocol() : options.protocolFolder;
}

QList<Flow> wantedFlows(const Acceptance &acceptance, const QStringList &only)
{
    QList<Flow> flows;
    for (const QString &id : only)
        if (std::none_of(acceptance.flows.begin(), acceptance.flows.end(),
                [&id](const Flow &flow) { return flow.id == id; }))
            throw CannotDo(tr::Tr(u"acceptNoFlow"_s, u"«%1» — не сценарий"_s).arg(id),
                {u"acceptNoFlowRemedy"_s, u"сценарии перечисляет korvel-till accept --list"_s});
    std::copy_if(acceptance.flows.begin(), acceptance.flows.end(), std::back_inserter(flows),
        [&only](const Flow &flow) { return only.isEmpty() || only.contains(flow.id); });
    return flows;
}

void requireCard(const Options &options)
{
    if (options.card.isEmpty())
        throw CannotDo({u"acceptNoCard"_s, u"не указана тестовая карта"_s},
            {u"acceptNoCardRemedy"_s, u"укажите --card НОМЕР"_s});
}

RunSettings settingsOf(const Options &options, const StopRequest &stop)
{
    RunSettings settings;
    settings.access = accessOf(options);
    settings.sender = {options.pos, options.shop, options.organization, options.orgName};
    settings.articles = articlesOf(options.articles);
    settings.protocolFolder = protocolFolder(options);
    settings.card = options.card;
    settings.unknownCard = options.unknownCard;
    settings.coupon = options.coupon;
    settings.code = options.code;
    settings.codeCommand = options.codeCommand;
    settings.writes = options.writes;
    settings.isStopWanted = [&stop] { return stop.isMade(); };
    return settings;
}

int list(const Options &options, const Acceptance &acceptance)
{
    if (options.json)
        print(listObject(acceptance));
    else
        print(listText(acceptance));
    return static_cast<int>(ExitStatus::Success);
}

int tell(const Options &options, const Report &report, const Acceptance &acceptance)
{
    if (options.json)
        print(reportObject(report, acceptance));
    else
        print(reportText(report, acceptance));
    for (const QString &line : leftOverText(report))
        complain(line);
    if (report.wasStopped)
        complain(tr::Tr(u"acceptStopped"_s, u"приёмка прервана"_s).ui());
    const bool isGood
        = report.count(Verdict::Failed) == 0 && report.isClean() && !report.wasStopped;
    return static_cast<int>(isGood ? ExitStatus::Success : ExitStatus::NotAllDone);
}

} // namespace

int accept(const Options &options)
{
    const Acceptance acceptance = readAcceptance(protocolFolder(options));
    if (options.lists)
        return list(options, acceptance);
    requireCard(options);
    privacy::leaveNoCore();
    const QList<Flow> flows = wantedFlows(acceptance, options.only);
    const StopRequest stop;
    Runner runner(settingsOf(options, stop));
    try {
        return tell(options, runner.run(flows), acceptance);
    } catch (const ServiceNotReachable &error) {
        complain(error.tr().ui());
        return static_cast<int>(ExitStatus::Unusable);
    }
}

} // namespace till::accept

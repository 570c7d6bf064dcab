#include "tests/till/accept/runfixture.h"

#include "tests/emulator/support/httpclient.h"

#include <nlohmann/json.hpp>

using namespace Qt::StringLiterals;
using namespace till::accept;

RunSettings RunFixture::usualSettings(const QUrl &url)
{
    RunSettings settings;
    settings.access.url = url;
    settings.articles = articlesOf({});
    settings.protocolFolder = builtInProtocol();
    settings.card = u"2900000000017"_s;
    settings.unknownCard = u"2999"_s;
    settings.coupon = u"9900000000018"_s;
    settings.code = u"4829"_s;
    settings.writes = true;
    settings.isStopWanted = [] { return false; };
    return settings;
}

QStringList RunFixture::failedRules(const Report &report)
{
    QStringList rules;
    for (const FlowResult &flow : report.flows)
        for (const RuleResult &rule : flow.rules)
            if (rule.verdict == Verdict::Failed)
                rules.append(rule.rule);
    rules.removeDuplicates();
    rules.sort();
    return rules;
}

RuleResult RunFixture::resultOf(const Report &report, const QString &rule)
{
    for (const FlowResult &flow : report.flows)
        for (const RuleResult &result : flow.rules)
            if (result.rule == rule)
                return result;
    return {};
}

double RunFixture::balance() const
{
    const auto answer = emulator::httpGet(service.api("cards/2900000000017"));
    return nlohmann::json::parse(answer.body.toStdString())["balance"];
}

Report RunFixture::whenRun(const RunSettings &settings, const QString &only) const
{
    QList<Flow> flows;
    for (const Flow &flow : acceptance.flows)
        if (only.isEmpty() || flow.id == only)
            flows.append(flow);
    return Runner(settings).run(flows);
}

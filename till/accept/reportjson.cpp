#include "till/accept/reporttext.h"
#include "till/accept/request.h"

using namespace Qt::StringLiterals;

namespace till::accept {

namespace {

const char *nameOf(Verdict verdict)
{
    switch (verdict) {
    case Verdict::Passed:
        return "passed";
    case Verdict::Failed:
        return "failed";
    case Verdict::NotOffered:
        return "notOffered";
    case Verdict::NotReached:
        return "notReached";
    }
    return "";
}

Json textOrNull(const QString &text)
{
    return text.isEmpty() ? Json() : Json(toJson(text));
}

Json failureObject(const Failure &failure)
{
    return {{"step", toJson(failure.step)}, {"expected", toJson(failure.shortfall.expected)},
        {"got", toJson(failure.shortfall.got)}, {"request", toJson(indented(failure.request))},
        {"answer", textOrNull(indented(failure.answer))}};
}

Json ruleObject(const RuleResult &result, const Acceptance &acceptance)
{
    const Rule *rule = acceptance.rule(result.rule);
    Json failures = Json::array();
    for (const Failure &failure : result.failures)
        failures.push_back(failureObject(failure));
    return {{"rule", toJson(result.rule)}, {"text", toJson(rule ? rule->text.ui() : QString())},
        {"result", nameOf(result.verdict)}, {"reason", textOrNull(result.reason)},
        {"failures", failures}};
}

Json flowObject(const FlowResult &flow, const Acceptance &acceptance)
{
    Json rules = Json::array();
    for (const RuleResult &rule : flow.rules)
        rules.push_back(ruleObject(rule, acceptance));
    return {{"flow", toJson(flow.id)}, {"title", toJson(flow.title)}, {"rules", rules}};
}

Json findingsObject(const Report &report)
{
    Json findings = Json::object();
    for (const FlowResult &flow : report.flows)
        for (const FindingResult &finding : flow.findings)
            findings[toJson(finding.id)]
                = {{"case", toJson(finding.caseId)}, {"text", toJson(finding.text)}};
    return findings;
}

Json leftOverArray(const Report &report)
{
    Json array = Json::array();
    for (const LeftOver &left : report.leftOver)
        array.push_back({{"operation", toJson(left.operation)}, {"card", toJson(left.card)},
            {"number", toJson(left.number)}, {"transaction", textOrNull(left.transaction)},
            {"reason", toJson(left.reason)}});
    return array;
}

} // namespace

Json reportObject(const Report &report, const Acceptance &acceptance)
{
    Json flows = Json::array();
    for (const FlowResult &flow : report.flows)
        flows.push_back(flowObject(flow, acceptance));
    return {{"url", toJson(report.url)}, {"card", toJson(report.card)}, {"flows", flows},
        {"findings", findingsObject(report)}, {"booked", report.booked},
        {"takenBack", report.takenBack}, {"leftOver", leftOverArray(report)},
        {"balanceBefore", textOrNull(report.balanceBefore)},
        {"balanceAfter", textOrNull(report.balanceAfter)}, {"stopped", report.wasStopped},
        {"passed", report.count(Verdict::Passed)}, {"failed", report.count(Verdict::Failed)},
        {"notOffered", report.count(Verdict::NotOffered)},
        {"notReached", report.count(Verdict::NotReached)}};
}

Json listObject(const Acceptance &acceptance)
{
    Json flows = Json::array();
    for (const Flow &flow : acceptance.flows) {
        Json rules = Json::array();
        for (const QString &id : rulesOf(flow)) {
            const Rule *rule = acceptance.rule(id);
            rules.push_back(
                {{"rule", toJson(id)}, {"section", toJson(rule ? rule->section : u""_s)},
                    {"text", toJson(rule ? rule->text.ui() : u""_s)}});
        }
        flows.push_back({{"flow", toJson(flow.id)}, {"title", toJson(flow.title.ui())},
            {"writes", flow.writes}, {"rules", rules}});
    }
    return flows;
}

} // namespace till::accept

#include "till/accept/flowresult.h"

#include <algorithm>

namespace till::accept {

namespace {

void markNotOffered(RuleResult &rule, const QString &reason)
{
    if (rule.verdict != Verdict::NotReached)
        return;
    rule.verdict = Verdict::NotOffered;
    rule.reason = reason;
}

} // namespace

FlowResultBuilder::FlowResultBuilder(const Flow &flow)
{
    result.id = flow.id;
    result.title = flow.title.ui();
    for (const QString &rule : rulesOf(flow))
        result.rules.append({rule, Verdict::NotReached, {}, {}});
}

RuleResult &FlowResultBuilder::of(const QString &rule)
{
    return *std::find_if(result.rules.begin(), result.rules.end(),
        [&rule](const RuleResult &one) { return one.rule == rule; });
}

void FlowResultBuilder::pass(const QString &rule)
{
    RuleResult &one = of(rule);
    if (one.verdict != Verdict::Failed)
        one.verdict = Verdict::Passed;
}

void FlowResultBuilder::fail(const QString &rule, const Failure &failure)
{
    RuleResult &one = of(rule);
    one.verdict = Verdict::Failed;
    one.failures.append(failure);
}

void FlowResultBuilder::notOffered(const QString &rule, const QString &reason)
{
    markNotOffered(of(rule), reason);
}

void FlowResultBuilder::restNotOffered(const QString &reason)
{
    for (RuleResult &one : result.rules)
        markNotOffered(one, reason);
}

} // namespace till::accept

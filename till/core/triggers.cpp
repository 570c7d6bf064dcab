#include "till/core/triggers.h"

#include "till/core/pluginguard.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace till {

namespace {

QList<ActionTrigger> triggersOf(
    const BasicPlugin &plugin, control::EActionType type, ActionTrigger::Order order)
{
    QList<ActionTrigger> found;
    for (const ActionTrigger &trigger : plugin.getTriggers())
        if (trigger.getContext() == EContext::Code::Cheque && trigger.getActionType() == type
            && trigger.getOrder() == order)
            found.append(trigger);
    std::stable_sort(found.begin(), found.end(), [](const auto &left, const auto &right) {
        return left.getPriority() < right.getPriority();
    });
    return found;
}

EContext::Result run(const ActionTrigger &trigger, const control::Action &action, Outcome &outcome)
{
    auto result = EContext::Result::Continue;
    guarded(outcome, u"trigger on action %1"_s.arg(static_cast<int>(action.getType())),
        [&] { result = trigger.getHandler()(action); });
    return result;
}

} // namespace

bool runTriggersBefore(const BasicPlugin &plugin, const control::Action &action, Outcome &outcome)
{
    const auto triggers = triggersOf(plugin, action.getType(), ActionTrigger::Order::Before);
    for (const ActionTrigger &trigger : triggers) {
        const EContext::Result result = run(trigger, action, outcome);
        if (result == EContext::Result::Continue)
            continue;
        outcome.result = static_cast<int>(result);
        return false;
    }
    return true;
}

void runTriggersAfter(const BasicPlugin &plugin, const control::Action &action, Outcome &outcome)
{
    const auto triggers = triggersOf(plugin, action.getType(), ActionTrigger::Order::After);
    for (const ActionTrigger &trigger : triggers)
        run(trigger, action, outcome);
}

} // namespace till

#include "till/accept/flow.h"

#include <algorithm>

namespace till::accept {

const Rule *Acceptance::rule(const QString &id) const
{
    const auto found
        = std::find_if(rules.begin(), rules.end(), [&id](const Rule &one) { return one.id == id; });
    return found == rules.end() ? nullptr : &*found;
}

QStringList rulesOf(const Flow &flow)
{
    QStringList ids;
    const bool hasAnswers = std::any_of(
        flow.steps.begin(), flow.steps.end(), [](const Step &step) { return !step.expectsFault; });
    ids.append(everyanswer::comes);
    if (hasAnswers)
        ids.append({everyanswer::status, everyanswer::schema, everyanswer::kind,
            everyanswer::prefix, everyanswer::refusal});
    for (const Step &step : flow.steps)
        for (const Check &check : step.checks)
            ids.append(check.rule);
    ids.removeDuplicates();
    return ids;
}

} // namespace till::accept

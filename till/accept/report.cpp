#include "till/accept/report.h"

#include <algorithm>

namespace till::accept {

int Report::count(Verdict verdict) const
{
    qsizetype count = 0;
    for (const FlowResult &flow : flows)
        count += std::count_if(flow.rules.begin(), flow.rules.end(),
            [verdict](const RuleResult &rule) { return rule.verdict == verdict; });
    return static_cast<int>(count);
}

bool Report::isClean() const
{
    return leftOver.isEmpty() && balanceBefore == balanceAfter;
}

} // namespace till::accept

#pragma once

#include "till/accept/report.h"

namespace till::accept {

/// Gathers what a flow shows of each of its rules. A rule that failed once has failed; one that
/// held at least once and was not looked at elsewhere has passed.
class FlowResultBuilder
{
public:
    explicit FlowResultBuilder(const Flow &flow);

    void pass(const QString &rule);
    void fail(const QString &rule, const Failure &failure);
    void notOffered(const QString &rule, const QString &reason);
    /// Of every rule that nothing is known of yet: the rest of the flow was left out.
    void restNotOffered(const QString &reason);

    FlowResult result;

private:
    [[nodiscard]] RuleResult &of(const QString &rule);
};

} // namespace till::accept

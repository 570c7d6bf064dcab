#pragma once

#include "till/accept/comparison.h"
#include "till/accept/flow.h"

#include <QList>
#include <QString>

namespace till::accept {

enum class Verdict
{
    Passed,
    Failed,
    NotOffered, ///< something that the service or the caller would have to bring is not there
    NotReached ///< the flow ended before, behind a failure or because it was stopped
};

/// Why a rule failed.
struct Failure
{
    QString step;
    Shortfall shortfall;
    QByteArray request;
    QByteArray answer; ///< empty when there was none
};

struct RuleResult
{
    QString rule;
    Verdict verdict = Verdict::NotReached;
    QString reason; ///< why it was not offered
    QList<Failure> failures;
};

struct FindingResult
{
    QString id;
    QString about;
    QString caseId;
    QString text;
};

struct FlowResult
{
    QString id;
    QString title;
    QList<RuleResult> rules;
    QList<FindingResult> findings;
};

/// What was booked and could not be taken back.
struct LeftOver
{
    QString operation; ///< "Sale" or "Return"
    QString card;
    QString number; ///< the cheque's
    QString transaction; ///< empty when the service told none
    QString reason;
};

struct Report
{
    QString url;
    QString card;
    QList<FlowResult> flows;
    int booked = 0;
    int takenBack = 0;
    QList<LeftOver> leftOver;
    /// Balances of the card before and after a run that books; null where they are not known.
    QString balanceBefore;
    QString balanceAfter;
    bool wasStopped = false;

    [[nodiscard]] int count(Verdict verdict) const;
    /// Nothing stays booked, and the balance is as before as far as it is known.
    [[nodiscard]] bool isClean() const;
};

} // namespace till::accept

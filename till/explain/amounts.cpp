#include "till/explain/amounts.h"

#include "host/documents/money.h"

namespace till::explain {

Amounts amountsOf(ServiceOperation operation, const AnswerFacts &answer)
{
    Amounts amounts;
    amounts.balance = answer.balance;
    if (operation == ServiceOperation::Calculate) {
        amounts.available = answer.available;
        if (money::counts(answer.spent.value_or(0.0)))
            amounts.toSpend = answer.spent;
    }
    if (operation == ServiceOperation::Register) {
        amounts.spent = answer.spent;
        amounts.earned = answer.earned;
    }
    if (operation == ServiceOperation::Return) {
        amounts.takenBack = answer.spent;
        amounts.givenBack = answer.charged;
    }
    return amounts;
}

Amounts amountsOf(const AbstractDocument &document)
{
    Amounts amounts;
    amounts.sum = document.getSumAfterDiscounts();
    if (document.getOperationKind() == EOperationKind::GoodsComeBack)
        return amounts;
    amounts.spent = document.getPointsPaid();
    const auto card = document.getCardRecord(ECardMode::OnlineLoyalty);
    if (!card || card->getOperationId().isEmpty())
        return amounts;
    amounts.earned = document.getEffects().pointsEarned;
    bool ok = false;
    const double balance = card->getBonusBalance().toDouble(&ok);
    if (ok)
        amounts.balance = balance;
    return amounts;
}

} // namespace till::explain

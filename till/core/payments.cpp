// Money changes hands.

#include "host/documents/money.h"
#include "till/core/cannotdo.h"
#include "till/core/till.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace till {

namespace {

QString nameOf(PaymentKind kind)
{
    switch (kind) {
    case PaymentKind::Cash:
        return u"cash"_s;
    case PaymentKind::Card:
        return u"card"_s;
    }
    Q_UNREACHABLE();
}

} // namespace

double Till::paid() const
{
    double sum = 0.0;
    const auto payments = document()->getPayments();
    for (const Payment &payment : payments)
        sum += payment.amount;
    return sum;
}

double Till::rest() const
{
    return document() ? std::max(document()->getSumAfterDiscounts() - paid(), 0.0) : 0.0;
}

// A payment answers to the sum that it was made for.
void Till::dropPayments()
{
    document()->setPayments({});
}

Outcome Till::pay(PaymentKind kind, std::optional<double> amount)
{
    const auto open = openDocument();
    if (!money::counts(rest()))
        throw CannotDo({u"cannotPayMore"_s, u"оплачивать больше нечего"_s},
            {u"cannotPayMoreRemedy"_s, u"закройте чек"_s});
    // Only cash is handed back as change.
    if (kind == PaymentKind::Card && amount && money::counts(*amount - rest()))
        throw CannotDo(tr::Tr(u"cannotPayOverByCard"_s, u"картой можно оплатить не больше %1"_s)
                           .argAmount(rest()),
            {u"cannotPayOverByCardRemedy"_s, u"оплатите картой только остаток"_s});
    auto payments = open->getPayments();
    payments.append(Payment{nameOf(kind), amount.value_or(rest())});
    open->setPayments(payments);
    keep();
    return {};
}

void Till::payRest()
{
    if (money::counts(rest()))
        document()->setPayments(
            document()->getPayments() << Payment{nameOf(PaymentKind::Cash), rest()});
}

void Till::requireRightlyPaid() const
{
    if (money::counts(paid()) && money::counts(rest()))
        throw CannotDo(
            tr::Tr(u"cannotClosePartlyPaid"_s, u"чек оплачен не полностью, осталось %1"_s)
                .argAmount(rest()),
            {u"cannotClosePartlyPaidRemedy"_s, u"доплатите наличными или картой"_s});
}

} // namespace till

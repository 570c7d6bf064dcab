// The sale is calculated, and paid with points.

#include "host/documents/discountlogic.h"
#include "host/documents/money.h"
#include "till/core/pluginguard.h"
#include "till/core/till.h"
#include "till/core/triggers.h"

using namespace Qt::StringLiterals;

namespace till {

namespace {

tr::Tr notOffered()
{
    return {u"tillPointsNotOffered"_s, u"Оплата баллами недоступна: нет доступных баллов"_s};
}

tr::Tr tooManyPoints(double amount, double available, double sum)
{
    return tr::Tr(
        u"tillTooManyPoints"_s, u"Нельзя оплатить баллами %1: доступно баллов %2, сумма чека %3"_s)
        .argAmount(amount)
        .argAmount(available)
        .argAmount(sum);
}

} // namespace

Outcome Till::calculate()
{
    const auto sale = openSaleOr(
        {u"cannotCalculateReturn"_s, u"возврат не рассчитывается в системе лояльности"_s});
    requireChangeable();
    Outcome outcome;
    if (!runTriggersBefore(*m_system, control::Action(control::EActionType::Total), outcome))
        return outcome;

    m_system->clearDiscountImpacts();
    m_system->clearBonusImpactsForSpend();
    m_system->clearBonusRecords();
    const auto discounts = MockFactory<DiscountLogic>::create();
    discounts->process(sale, EDiscountProcessing::RemoveLoyalty);
    dropPayments();
    announce(
        outcome, [&] { request(outcome, u"request"_s, [&] { return m_system->request(sale); }); });
    discounts->applyDiscounts(sale, sale->getEffects().discountImpacts);
    keep();
    return outcome;
}

double Till::sumWithoutPoints() const
{
    return document()->getSumAfterDiscounts() + document()->getPointsPaid();
}

std::optional<tr::Tr> Till::whyNoPoints(std::optional<double> amount, Outcome &outcome)
{
    if (isLoyaltyOff())
        return loyaltyIsOff();
    double available = 0.0;
    guarded(outcome, u"getPointsForSpend"_s,
        [&] { available = m_system->getPointsForSpend(document()); });
    if (!money::counts(available))
        return notOffered();
    const double sum = sumWithoutPoints();
    if (amount && (money::counts(*amount - available) || money::counts(*amount - sum)))
        return tooManyPoints(*amount, available, sum);
    return std::nullopt;
}

Outcome Till::payWithPoints(std::optional<double> amount)
{
    const auto sale
        = openSaleOr({u"cannotPayReturnWithPoints"_s, u"возврат не оплачивается баллами"_s});
    requireChangeable();
    Outcome outcome;
    if (const auto reason = whyNoPoints(amount, outcome)) {
        outcome.notices.append(*reason);
        return outcome;
    }
    if (!runTriggersBefore(
            *m_system, control::Action(control::EActionType::PayWithPoints), outcome))
        return outcome;

    m_system->clearBonusImpactsForSpend();
    const auto discounts = MockFactory<DiscountLogic>::create();
    // A payment that replaces another is asked for on the sum that is to be paid without it.
    discounts->applyPoints(sale, {});
    dropPayments();
    guarded(outcome, u"setPointsForSpend"_s,
        [&] { m_system->setPointsForSpend(sale, amount.value_or(0.0)); });
    announce(outcome,
        [&] { request(outcome, u"spendPoints"_s, [this] { return m_system->spendPoints(); }); });
    discounts->applyPoints(sale, sale->getEffects().bonusImpacts);
    keep();
    return outcome;
}

} // namespace till

// Coupons are handed in.

#include "till/core/cannotdo.h"
#include "till/core/till.h"

using namespace Qt::StringLiterals;

namespace till {

void Till::requireCouponAllowed(const QString &number) const
{
    requireChangeable();
    const auto open = document();
    if (!open)
        return;
    if (open->getType() != EDocumentType::Sale)
        throw CannotDo({u"cannotAddCouponToReturn"_s, u"возврат не принимает купоны"_s},
            {u"cannotReturnFirst"_s, u"сначала закройте или отмените возврат"_s});
    if (open->getCoupon(number))
        throw CannotDo(tr::Tr(u"cannotAddCouponTwice"_s, u"купон %1 уже есть в чеке"_s).arg(number),
            {u"cannotAddCouponTwiceRemedy"_s, u"в одном чеке купон действует один раз"_s});
}

Outcome Till::addCoupon(const QString &number, const QString &rawData)
{
    requireCouponAllowed(number);
    openSaleWhereNoneIs();
    Outcome outcome;
    insertCoupon(number, rawData, outcome);
    keep();
    return outcome;
}

void Till::insertCoupon(const QString &number, const QString &rawData, Outcome &outcome)
{
    // The customer keeps a coupon that does nothing here.
    if (isLoyaltyOff()) {
        outcome.refusal = Refusal{loyaltyIsOff(), true};
        return;
    }
    const control::Action action(
        control::EActionType::AddCoupon, {{u"couponNumber"_s, number}, {u"rawdata"_s, rawData}});
    runAction(action, outcome, [&] {
        document()->addCoupon(QSharedPointer<Coupon>::create(number));
        dropPayments();
    });
}

} // namespace till

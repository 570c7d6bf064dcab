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
        throw CannotDo(u"a return takes no coupons"_s, u"close or cancel the return first"_s);
    if (open->getCoupon(number))
        throw CannotDo(u"coupon %1 is on the cheque already"_s.arg(number),
            u"a coupon counts once on a cheque"_s);
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
    const control::Action action(
        control::EActionType::AddCoupon, {{u"couponNumber"_s, number}, {u"rawdata"_s, rawData}});
    runAction(action, outcome, [&] {
        document()->addCoupon(QSharedPointer<Coupon>::create(number));
        dropPayments();
    });
}

} // namespace till

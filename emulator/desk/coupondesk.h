#pragma once

#include "emulator/desk/context.h"
#include "emulator/soap/answer.h"

#include <QStringList>

namespace emulator {

/// What each of the cheque's coupons is worth here, in their order.
std::vector<AnsweredCoupon> assessCoupons(const DeskContext &context, const QStringList &numbers);

/// What the applicable ones take off.
std::vector<Reduction> reductionsOf(
    const DeskContext &context, const std::vector<AnsweredCoupon> &coupons);

/// Marks the applicable ones that hold only once as used by the sale.
void useCoupons(
    const DeskContext &context, const std::vector<AnsweredCoupon> &coupons, qint64 transaction);

/// A coupon that was printed for the customer of a sale.
struct IssuedCoupon
{
    QString number;
    QString text; ///< with its placeholders
};

/// One coupon of every rule that the sum reaches.
std::vector<IssuedCoupon> issueCoupons(
    const DeskContext &context, Amount sumDiscounted, qint64 transaction);

} // namespace emulator

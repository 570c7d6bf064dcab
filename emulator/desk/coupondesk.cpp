#include "emulator/desk/coupondesk.h"

#include <QSet>

#include <algorithm>

namespace emulator {

namespace {

const CouponData *findConfigured(const ServiceData &data, const QString &number)
{
    const auto found = std::find_if(data.coupons.begin(), data.coupons.end(),
        [&](const CouponData &coupon) { return coupon.number == number; });
    return found == data.coupons.end() ? nullptr : &*found;
}

Applicability applicabilityOf(
    const DeskContext &context, const QString &number, const CouponData *configured)
{
    if (!configured && !context.books.coupons.findIssued(number))
        return Applicability::Unknown;
    if (configured && !configured->applicable)
        return Applicability::NotApplicable;
    if (context.books.coupons.isUsed(number))
        return Applicability::AlreadyUsed;
    return Applicability::Applicable;
}

bool isApplicable(const AnsweredCoupon &coupon)
{
    return coupon.applicability == Applicability::Applicable;
}

bool holdsOnce(const CouponData *configured)
{
    return !configured || configured->once;
}

} // namespace

std::vector<AnsweredCoupon> assessCoupons(const DeskContext &context, const QStringList &numbers)
{
    std::vector<AnsweredCoupon> coupons;
    QSet<QString> assessed;
    for (const QString &number : numbers) {
        const CouponData *configured = findConfigured(context.data, number);
        // The same coupon presented twice counts once.
        const Applicability applicability = assessed.contains(number)
            ? Applicability::AlreadyUsed
            : applicabilityOf(context, number, configured);
        coupons.push_back({number, configured ? configured->emission : QString(), applicability});
        assessed.insert(number);
    }
    return coupons;
}

std::vector<Reduction> reductionsOf(
    const DeskContext &context, const std::vector<AnsweredCoupon> &coupons)
{
    std::vector<Reduction> reductions;
    for (const AnsweredCoupon &coupon : coupons) {
        if (!isApplicable(coupon))
            continue;
        if (const CouponData *configured = findConfigured(context.data, coupon.number))
            reductions.push_back(configured->reduction);
        else if (const auto issued = context.books.coupons.findIssued(coupon.number))
            reductions.push_back(*issued);
    }
    return reductions;
}

void useCoupons(
    const DeskContext &context, const std::vector<AnsweredCoupon> &coupons, qint64 transaction)
{
    for (const AnsweredCoupon &coupon : coupons) {
        if (isApplicable(coupon) && holdsOnce(findConfigured(context.data, coupon.number)))
            context.books.coupons.use(coupon.number, transaction);
    }
}

std::vector<IssuedCoupon> issueCoupons(
    const DeskContext &context, Amount sumDiscounted, qint64 transaction)
{
    std::vector<IssuedCoupon> issued;
    for (const InstantCouponRule &rule : context.data.instantCoupons) {
        if (rule.from <= sumDiscounted)
            issued.push_back({context.books.coupons.issue(rule, transaction), rule.text});
    }
    return issued;
}

} // namespace emulator

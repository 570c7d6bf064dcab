#include "common/host/services.h"
#include "common/names.h"
#include "plugin/korvelloyaltyonline.h"
#include "plugin/markdown.h"
#include "plugin/messages.h"

using namespace Qt::Literals::StringLiterals;

namespace {

const QString couponTemplate = u"korvelloyaltyonline_coupon"_s;

QStringList numbersOf(const QList<QSharedPointer<Coupon>> &coupons)
{
    QStringList numbers;
    for (const auto &coupon : coupons)
        numbers.append(coupon->getNumber());
    return numbers;
}

QStringList removeAllBut(const QStringList &applicable, AbstractDocument &document)
{
    QStringList removed;
    const auto coupons = document.getCoupons();
    for (const auto &coupon : coupons) {
        if (applicable.contains(coupon->getNumber()))
            continue;
        removed.append(coupon->getNumber());
        document.removeCoupon(coupon);
    }
    return removed;
}

} // namespace

void KorvelLoyaltyOnline::returnInapplicableCoupons(
    const QSharedPointer<AbstractDocument> &document, const QMap<QString, QVariant> &result) const
{
    const QStringList removed
        = removeAllBut(result.value(korvel::result::applicableCoupons).toStringList(), *document);
    if (removed.isEmpty())
        return;
    sendStopEvent();
    messages::show(messages::returnCoupons(removed));
    sendStartEvent();
}

void KorvelLoyaltyOnline::removeCoupons(const QSharedPointer<AbstractDocument> &document) const
{
    messages::show(messages::internalErrorBackCoupon(numbersOf(document->getCoupons())));
    document->removeCoupons();
}

void KorvelLoyaltyOnline::printCoupons(const QList<QVariant> &coupons) const
{
    for (const QVariant &coupon : coupons)
        MockFactory<TextPrinter>::create()->print(
            couponTemplate, QString(), coupon.toMap(), TextPrinter::defaultCopies, true);
}

EContext::Result KorvelLoyaltyOnline::afterCouponAdd(const control::Action &action) const
{
    const auto document = getCurrentDocument();
    const QString scanned = action.value(u"rawdata"_s).toString();
    if (!document || !markdown::isMarked(scanned))
        return EContext::Result::Continue;
    const auto coupon = document->getCoupon(action.value(u"couponNumber"_s).toString());
    if (!coupon)
        return EContext::Result::Continue;
    const QString displayedNumber
        = markdownCouponPrefix.arg(markdown::percentage(scanned)) + coupon->getNumber();
    coupon->setDisplayedNumber(displayedNumber);
    Singleton<DocumentWatcher>::instance()->couponChanged(coupon->getNumber(), displayedNumber);
    return EContext::Result::Continue;
}

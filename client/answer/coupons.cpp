#include "client/couponmessage.h"
#include "client/interface.h"
#include "client/names.h"
#include "common/host/services.h"
#include "common/names.h"

#include <algorithm>

namespace korvelLoyaltyOnline {

using xmlutils::getValueByTag;

namespace {

/// The first text that names the coupon, without outer blanks; empty when none does.
QString textOfCoupon(const QStringList &texts, const QString &number)
{
    const auto found = std::find_if(texts.cbegin(), texts.cend(),
        [&number](const QString &text) { return text.contains(number); });
    return found == texts.cend() ? QString() : found->trimmed();
}

} // namespace

QList<QVariant> Interface::createCouponsToPrint(const QDomDocument &response) const
{
    QStringList numbers;
    const QDomNodeList instant = response.elementsByTagName(wire::instantCoupon);
    for (int i = 0; i < instant.size(); ++i)
        numbers.append(getValueByTag(instant.at(i).toElement(), wire::number, 0));
    return couponsToPrint(getValueByTag(response, korvel::result::chequeMessage, 0), numbers);
}

QList<QVariant> Interface::couponsToPrint(const QString &message, const QStringList &numbers) const
{
    using namespace korvel;
    const QStringList texts = textsOfCoupons(message, m_couponMessageDelimeter);
    QList<QVariant> coupons;
    for (const QString &number : numbers)
        coupons.append(QMap<QString, QVariant>{
            {result::couponNumber, number}, {result::couponMessage, textOfCoupon(texts, number)}});
    return coupons;
}

} // namespace korvelLoyaltyOnline

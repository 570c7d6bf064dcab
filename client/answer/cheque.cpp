#include "client/couponmessage.h"
#include "client/interface.h"
#include "client/names.h"
#include "common/host/services.h"
#include "common/names.h"

namespace korvelLoyaltyOnline {

using xmlutils::getValueByTag;

namespace {

using Values = QMap<QString, QVariant>;

/// Applicability of a coupon that the cheque may use.
constexpr int applicable = 1;

/// The text of the first such element; the key is the element's name.
template <typename Scope> void readText(const Scope &scope, const QString &name, Values &result)
{
    result.insert(name, getValueByTag(scope, name, 0));
}

/// Likewise as a number, 0 for what is none.
template <typename Scope> void readNumber(const Scope &scope, const QString &name, Values &result)
{
    result.insert(name, getValueByTag(scope, name, 0).toDouble());
}

/// The same bonus names are texts here and numbers inside the positions: whoever reads the map
/// relies on either.
void readFigures(const QDomDocument &response, Values &result)
{
    using namespace korvel;
    for (const QString &name : {result::availablePayment, result::cardNormalActiveBalance,
             result::chargedStatusBonus, result::activeChargedBonus, result::transactionId,
             result::processed, result::verificationCode})
        readText(response, name, result);
    for (const QString &name :
        {result::writeoffBonus, result::summ, result::discount, result::summDiscounted})
        readNumber(response, name, result);
}

void insertUnlessEmpty(const QString &name, const Values &attributes, Values &result)
{
    if (!attributes.isEmpty())
        result.insert(name, attributes);
}

/// Numbers of the coupons that the service accepts, or their emissions where it names no number.
QStringList applicableCoupons(const QDomDocument &response)
{
    QStringList numbers;
    const QDomNodeList coupons = response.elementsByTagName(wire::coupon);
    for (int i = 0; i < coupons.size(); ++i) {
        const QDomElement coupon = coupons.at(i).toElement();
        if (getValueByTag(coupon, wire::applicabilityCode, 0).toInt() != applicable)
            continue;
        const QString number = getValueByTag(coupon, wire::number, 0);
        numbers.append(number.isEmpty() ? getValueByTag(coupon, wire::emissionId, 0) : number);
    }
    return numbers;
}

} // namespace

void Interface::fillRequestResult(
    const QDomDocument &response, QMap<QString, QVariant> &result) const
{
    using namespace korvel;
    readFigures(response, result);
    insertUnlessEmpty(result::extendedAttributes, createExtendedAttributes(response), result);
    readText(response, result::cashierMessage, result);
    result.insert(result::chequeMessage,
        textBeforeCoupons(
            getValueByTag(response, result::chequeMessage, 0), m_couponMessageDelimeter));
    const QList<QVariant> coupons = createCouponsToPrint(response);
    if (!coupons.isEmpty())
        result.insert(result::couponsToPrint, coupons);
    result.insert(result::positions, readPositions(response));
    result.insert(result::applicableCoupons, applicableCoupons(response));
}

QMap<QString, QVariant> Interface::readPositions(const QDomDocument &response) const
{
    Values positions;
    const QDomNodeList items = response.elementsByTagName(wire::item);
    for (int i = 0; i < items.size(); ++i) {
        const QDomElement item = items.at(i).toElement();
        positions.insert(getValueByTag(item, wire::positionNumber, 0), readPosition(item));
    }
    return positions;
}

QMap<QString, QVariant> Interface::readPosition(const QDomElement &item) const
{
    using namespace korvel;
    Values position;
    for (const QString &name : {result::summ, result::discount, result::summDiscounted,
             result::activeChargedBonus, result::chargedStatusBonus, result::writeoffBonus})
        readNumber(item, name, position);
    insertUnlessEmpty(result::extendedAttributes, createExtendedAttributes(item), position);
    return position;
}

} // namespace korvelLoyaltyOnline

#include "common/host/services.h"
#include "plugin/korvelloyaltyonline.h"
#include "plugin/markdown.h"
#include "plugin/messages.h"

#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Two quantities that differ by less are equal.
constexpr double quantityTolerance = 0.0005;
constexpr double oneUnit = 1.0;

QString scannedData(const control::Action &action)
{
    return action.value(u"rawdata"_s).toString();
}

bool isMarkdownPosition(const QString &scanned, const GoodsItem &position)
{
    return markdown::isMarked(scanned) || markdown::isMarked(position.getExtendedOptions());
}

bool isMoreThanOneUnit(const GoodsItem &position)
{
    return position.getBquant() - oneUnit > quantityTolerance;
}

/// Whether the modifiers would give the position another quantity than it has.
bool changesQuantity(const ModifiersContainer &modifiers, const GoodsItem &position)
{
    if (!modifiers.isSet(modifiers::Type::Quantity))
        return false;
    const double quantity = modifiers.value(modifiers::Type::Quantity).value<Quantity>().value();
    return std::abs(quantity - position.getBquant()) >= quantityTolerance;
}

} // namespace

EContext::Result KorvelLoyaltyOnline::beforeInput(const control::Action &action)
{
    const auto document = getCurrentDocument();
    if (document && scannedData(action) == lastMarkdownRawData
        && document->getModifiers().isSet(modifiers::Type::RepeatedScan)) {
        action.insert(u"scanDiscountBarcodeBeforeAddInvent"_s, false);
        action.insert(u"useLastChangedPosition"_s, true);
    }
    return EContext::Result::Continue;
}

EContext::Result KorvelLoyaltyOnline::beforePositionAdd(const control::Action &action)
{
    if (!getCurrentDocument())
        return EContext::Result::Continue;
    lastMarkdownRawData.clear();
    const auto position = action.value(u"position"_s).value<QSharedPointer<GoodsItem>>();
    if (!position)
        return EContext::Result::Stop;
    if (!isMarkdownPosition(scannedData(action), *position))
        return EContext::Result::Continue;
    if (isMoreThanOneUnit(*position) && !position->getTmcUnit().isFractional()
        && !allowChangeQuantityForMarkdownPositions) {
        messages::show(messages::forbidChangeQuantity());
        return EContext::Result::Refuse;
    }
    setPropertiesForMarkdownPosition(position);
    return EContext::Result::Continue;
}

EContext::Result KorvelLoyaltyOnline::afterPositionAdd(const control::Action &action)
{
    const QString scanned = scannedData(action);
    if (getCurrentDocument() && markdown::isMarked(scanned))
        lastMarkdownRawData = scanned;
    return EContext::Result::Continue;
}

EContext::Result KorvelLoyaltyOnline::beforeApplyModifiers(const control::Action &action) const
{
    const auto document = getCurrentDocument();
    const auto position = document
        ? document->getPosition(action.value(u"positionNumber"_s).toInt())
        : QSharedPointer<GoodsItem>();
    if (!position || !markdown::isMarked(position->getExtendedOptions())
        || !changesQuantity(document->getModifiers(), *position)
        || allowChangeQuantityForMarkdownPositions)
        return EContext::Result::Continue;
    document->getModifiers().clearAll();
    messages::show(messages::forbidChangeQuantity());
    return EContext::Result::Stop;
}

void KorvelLoyaltyOnline::setPropertiesForMarkdownPosition(
    const QSharedPointer<GoodsItem> &position) const
{
    const double minRetailPrice = interface->getMinRetailPriceForMarkdownPositions();
    if (money::counts(minRetailPrice))
        position->setMinRetailPrice(minRetailPrice);
    position->setUniteAvailableProp(false);
}

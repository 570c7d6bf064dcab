// Something is scanned, and the catalogue's rules say what it is.

#include "till/core/cannotdo.h"
#include "till/core/till.h"
#include "till/core/triggers.h"

using namespace Qt::StringLiterals;

namespace till {

namespace {

constexpr double oneMore = 1.0;

enum class Scanned
{
    Card,
    Coupon,
    Goods,
    Unknown
};

const Article *findArticle(const Catalogue &catalogue, const QString &data)
{
    const Article *byBarcode = catalogue.byBarcode(data);
    return byBarcode ? byBarcode : catalogue.byCode(data);
}

Scanned recognise(const Catalogue &catalogue, const QString &data)
{
    if (catalogue.isCard(data))
        return Scanned::Card;
    if (catalogue.isCoupon(data))
        return Scanned::Coupon;
    return findArticle(catalogue, data) ? Scanned::Goods : Scanned::Unknown;
}

} // namespace

void Till::requireScanAllowed(const QString &data) const
{
    switch (recognise(m_catalogue, data)) {
    case Scanned::Card:
        return requireCardAllowed();
    case Scanned::Coupon:
        return requireCouponAllowed(data);
    case Scanned::Goods:
        return requireGoodsAllowed();
    case Scanned::Unknown:
        throw CannotDo(
            tr::Tr(u"cannotRecognise"_s, u"%1 — не карта, не купон и не товар из каталога"_s)
                .arg(data),
            {u"cannotRecogniseRemedy"_s, u"проверьте «scan» и штрихкоды в каталоге"_s});
    }
}

Outcome Till::scan(const QString &data)
{
    requireChangeable();
    if (!document())
        requireScanAllowed(data);
    openSaleWhereNoneIs();
    Outcome outcome;
    const control::Action action(control::EActionType::Input, {{u"rawdata"_s, data}});
    ModifiersContainer &modifiers = document()->getModifiers();
    modifiers.set(modifiers::Type::RepeatedScan, true);
    const bool goesOn = runTriggersBefore(*m_system, action, outcome);
    // Used up here: the actions that follow are no repeated scan.
    modifiers.clear(modifiers::Type::RepeatedScan);
    if (goesOn)
        carryOutScan(action, data, outcome);
    keep();
    return outcome;
}

// A scan that repeats the last one belongs to the position that was made of it. Where that one was
// taken off, or another cheque has begun, it is a scan like any other.
void Till::carryOutScan(const control::Action &action, const QString &data, Outcome &outcome)
{
    const bool repeatsLast = action.value(u"useLastChangedPosition"_s, false).toBool();
    const auto last = repeatsLast ? lastAddedPosition() : QSharedPointer<GoodsItem>();
    if (last) {
        requireGoodsAllowed();
        setQuantity(*last, last->getBquant() + oneMore, outcome);
    } else {
        requireScanAllowed(data);
        addScanned(data, outcome);
    }
    runTriggersAfter(*m_system, action, outcome);
}

QSharedPointer<GoodsItem> Till::lastAddedPosition() const
{
    return document()->getPosition(document()->getNextPosnum() - 1);
}

void Till::addScanned(const QString &data, Outcome &outcome)
{
    switch (recognise(m_catalogue, data)) {
    case Scanned::Card:
        attachCard(data, ECardNumberType::Scanned, outcome);
        outcome.result.clear();
        break;
    case Scanned::Coupon:
        insertCoupon(data, data, outcome);
        break;
    case Scanned::Goods: {
        PositionRequest request;
        request.rawData = data;
        insertPosition(*findArticle(m_catalogue, data), request, outcome);
        break;
    }
    case Scanned::Unknown:
        break;
    }
}

} // namespace till

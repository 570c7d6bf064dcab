#include "host/documents/abstractdocument.h"

#include <algorithm>
#include <numeric>
#include <utility>

AbstractDocument::AbstractDocument(EDocumentType type, QString number)
    : m_type(type)
    , m_number(std::move(number))
{
    setObjectName(QStringLiteral("document"));
}

AbstractDocument::~AbstractDocument() = default;

void AbstractDocument::setPlace(const QString &shop, const QString &till)
{
    m_shop = shop;
    m_till = till;
}

EOperationKind AbstractDocument::getOperationKind() const
{
    const EDocumentType type = getType();
    return type == EDocumentType::ReturnOfSale || type == EDocumentType::ReturnWithoutSale
        ? EOperationKind::GoodsComeBack
        : EOperationKind::GoodsLeave;
}

bool AbstractDocument::isOperation(
    const QPair<EDocumentType, EOperationKind> &typeAndKind, EOperationKind kind) const
{
    return getType() == typeAndKind.first
        || (typeAndKind.second == kind && getOperationKind() == kind);
}

QSharedPointer<GoodsItem> AbstractDocument::getPosition(int posnum) const
{
    const auto found = std::find_if(m_goods.cbegin(), m_goods.cend(),
        [posnum](const auto &position) { return position->getPosnum() == posnum; });
    return found == m_goods.cend() ? QSharedPointer<GoodsItem>() : *found;
}

void AbstractDocument::addPosition(const QSharedPointer<GoodsItem> &position)
{
    m_goods.append(position);
}

void AbstractDocument::removePosition(int posnum)
{
    m_goods.removeIf([posnum](const auto &position) { return position->getPosnum() == posnum; });
}

double AbstractDocument::getSumBeforeDiscounts() const
{
    return std::accumulate(m_goods.cbegin(), m_goods.cend(), 0.0,
        [](double sum, const auto &position) { return sum + position->getSumn(); });
}

double AbstractDocument::getSumAfterDiscounts() const
{
    return std::accumulate(m_goods.cbegin(), m_goods.cend(), 0.0,
        [](double sum, const auto &position) { return sum + position->getSumb(); });
}

double AbstractDocument::getPointsPaid() const
{
    return std::accumulate(m_goods.cbegin(), m_goods.cend(), 0.0,
        [](double sum, const auto &position) { return sum + position->getPointsPaid(); });
}

void AbstractDocument::recalculate()
{
    for (const auto &position : std::as_const(m_goods))
        position->recalculate();
}

void AbstractDocument::refresh()
{
    recalculate();
}

QSharedPointer<DocumentCardRecord> AbstractDocument::getCardRecord(ECardMode mode) const
{
    const auto found = std::find_if(m_cards.cbegin(), m_cards.cend(),
        [mode](const auto &record) { return record->getCardMode() == mode; });
    return found == m_cards.cend() ? QSharedPointer<DocumentCardRecord>() : *found;
}

void AbstractDocument::addCardRecord(const QSharedPointer<DocumentCardRecord> &record)
{
    // A record takes the place, and so the number, of the one that it replaces: numbers stay
    // unique.
    auto place = std::find_if(m_cards.begin(), m_cards.end(),
        [&record](const auto &other) { return other->getCardMode() == record->getCardMode(); });
    if (place == m_cards.end())
        place = m_cards.insert(place, record);
    else
        *place = record;
    record->setCodeInternal(static_cast<int>(std::distance(m_cards.begin(), place)) + 1);
}

QString AbstractDocument::getCardNumber() const
{
    const auto record = getCardRecord(ECardMode::OnlineLoyalty);
    return record ? record->getNumber().toString() : QString();
}

QSharedPointer<Coupon> AbstractDocument::getCoupon(const QString &number) const
{
    const auto found = std::find_if(m_coupons.cbegin(), m_coupons.cend(),
        [&number](const auto &coupon) { return coupon->getNumber() == number; });
    return found == m_coupons.cend() ? QSharedPointer<Coupon>() : *found;
}

void AbstractDocument::addCoupon(const QSharedPointer<Coupon> &coupon)
{
    m_coupons.append(coupon);
}

void AbstractDocument::removeCoupon(const QSharedPointer<Coupon> &coupon)
{
    m_coupons.removeOne(coupon);
}

void AbstractDocument::removeCoupons()
{
    m_coupons.clear();
}

QVariant AbstractDocument::getStoredValue(
    const QString &group, const QString &key, const QVariant &defaultValue) const
{
    return m_stored.value(group).value(key, defaultValue);
}

void AbstractDocument::setStoredValue(
    const QString &group, const QString &key, const QVariant &value)
{
    m_stored[group].insert(key, value);
}

void AbstractDocument::removeStoredValues(const QString &group)
{
    m_stored.remove(group);
}

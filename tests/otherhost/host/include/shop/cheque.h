#pragma once

#include "shop/makers.h"
#include "shop/records.h"

#include <QPair>

namespace modifiers {
enum class Type
{
    Quantity = 3,
    RepeatedScan = 17
};
} // namespace modifiers

namespace money {
inline constexpr double tolerance = 0.005;
inline bool equal(double left, double right)
{
    return qAbs(left - right) < tolerance;
}
inline bool counts(double amount)
{
    return amount > tolerance;
}
} // namespace money

namespace shop {

enum class EDocumentType
{
    Sale = 1,
    Correction = 5,
    ReturnWithoutSale = 7,
    ReturnOfSale = 25
};
enum class EOperationKind
{
    GoodsComeBack = 2
};
enum class EDiscountProcessing
{
    RemoveLoyalty = 2,
    PrepareForSending = 6
};

struct Quantity
{
    double value() const { return 1; }
};

struct ModifiersContainer
{
    bool isSet(modifiers::Type) const { return false; }
    QVariant value(modifiers::Type) const { return {}; }
    void clearAll() { }
};

/// A sale of one position.
class AbstractDocument
{
public:
    EDocumentType getType() const { return EDocumentType::Sale; }
    QString getNumber() const { return m_number; }
    bool isOperation(const QPair<EDocumentType, EOperationKind> &, EOperationKind) const
    {
        return false;
    }
    QString getReferencedNumber() const { return {}; }
    const QList<QSharedPointer<GoodsItem>> &getGoods() const { return m_goods; }
    QSharedPointer<GoodsItem> getPosition(int) const { return m_goods.value(0); }
    double getSumBeforeDiscounts() const { return 0; }
    double getSumAfterDiscounts() const { return 0; }
    void recalculate() { }
    void refresh() { }
    QSharedPointer<DocumentCardRecord> getCardRecord(ECardMode) const { return m_card; }
    void addCardRecord(const QSharedPointer<DocumentCardRecord> &card) { m_card = card; }
    bool hasCoupons() const { return false; }
    QList<QSharedPointer<Coupon>> getCoupons() const { return {}; }
    QSharedPointer<Coupon> getCoupon(const QString &) const { return {}; }
    void removeCoupon(const QSharedPointer<Coupon> &) { }
    void removeCoupons() { }
    QVariant getStoredValue(const QString &, const QString &, const QVariant &otherwise) const
    {
        return otherwise;
    }
    ModifiersContainer &getModifiers() { return m_modifiers; }
    void setChequeText(const QString &) { }

private:
    QString m_number;
    QList<QSharedPointer<GoodsItem>> m_goods;
    QSharedPointer<DocumentCardRecord> m_card;
    ModifiersContainer m_modifiers;
};

struct DocumentFactory
{
    QSharedPointer<AbstractDocument> makeDocument(
        const QSharedPointer<AbstractDocument> &document) const
    {
        return document;
    }
};

struct DocumentLogic
{
    QList<QObject *> getObjects(const QSharedPointer<AbstractDocument> &) const { return {}; }
};

struct DiscountLogic
{
    void process(const QSharedPointer<AbstractDocument> &, EDiscountProcessing) const { }
};

} // namespace shop

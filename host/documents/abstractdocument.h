#pragma once

#include "host/documents/coupon.h"
#include "host/documents/documentbonusrecord.h"
#include "host/documents/documentcardrecord.h"
#include "host/documents/documentimpact.h"
#include "host/documents/documenttype.h"
#include "host/documents/goodsitem.h"
#include "host/documents/modifiers.h"
#include "host/export.h"

#include <QList>
#include <QMap>
#include <QObject>
#include <QPair>
#include <QSharedPointer>
#include <QString>
#include <QStringList>
#include <QVariant>

/// What a customer gave: "cash" or "card", and how much.
struct Payment
{
    QString kind;
    double amount = 0.0;
};

/// What the loyalty system granted a document, as the till copied it.
struct LoyaltyEffects
{
    QList<QSharedPointer<DiscountImpact>> discountImpacts;
    QList<QSharedPointer<BonusImpact>> bonusImpacts;
    QList<DocumentBonusRecord> bonusRecords;
    QStringList messagesToCashier;
    QStringList messagesToClient;
    double pointsAvailable = 0.0; ///< points for spend
    double pointsChosen = 0.0; ///< points to spend
    double pointsEarned = 0.0; ///< points for earn
};

/// A sale or return with everything on it.
///
/// Open, then closed or cancelled, never back. Held by shared pointers; lives on the host's thread.
/// A QObject so that masks can read its properties.
class POSHOST_EXPORT AbstractDocument : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString number READ getNumber)
    Q_PROPERTY(int type READ getTypeCode)
    Q_PROPERTY(QString shop READ getShop)
    Q_PROPERTY(QString till READ getTill)
    Q_PROPERTY(double sum READ getSumBeforeDiscounts)
    Q_PROPERTY(double sumDiscounted READ getSumAfterDiscounts)
    Q_PROPERTY(QString refersTo READ getReferencedNumber)
    Q_PROPERTY(QString cardNumber READ getCardNumber)

public:
    AbstractDocument(EDocumentType type, QString number);
    ~AbstractDocument() override;

    [[nodiscard]] virtual EDocumentType getType() const { return m_type; }
    [[nodiscard]] int getTypeCode() const { return static_cast<int>(getType()); }
    [[nodiscard]] virtual QString getNumber() const { return m_number; }
    [[nodiscard]] EDocumentState getState() const { return m_state; }
    void setState(EDocumentState state) { m_state = state; }
    /// Number of the shop and of the till that the document was made at.
    [[nodiscard]] QString getShop() const { return m_shop; }
    [[nodiscard]] QString getTill() const { return m_till; }
    void setPlace(const QString &shop, const QString &till);
    /// Made when the document was opened; ties journal lines together and is never sent.
    [[nodiscard]] QString getCorrelationId() const { return m_correlationId; }
    void setCorrelationId(const QString &id) { m_correlationId = id; }
    [[nodiscard]] QDateTime getOpened() const { return m_opened; }
    void setOpened(const QDateTime &opened) { m_opened = opened; }
    /// Invalid until the document is closed.
    [[nodiscard]] QDateTime getClosed() const { return m_closed; }
    void setClosed(const QDateTime &closed) { m_closed = closed; }
    /// True when the document's type is the pair's first, or when its goods go the way that both
    /// the pair's second and `kind` name.
    [[nodiscard]] virtual bool isOperation(
        const QPair<EDocumentType, EOperationKind> &typeAndKind, EOperationKind kind) const;
    [[nodiscard]] EOperationKind getOperationKind() const;

    /// Number of the cheque that a return refers to; empty for other documents.
    [[nodiscard]] virtual QString getReferencedNumber() const { return m_referencedNumber; }
    void setReferencedNumber(const QString &number) { m_referencedNumber = number; }

    /// Positions in the order in which they were added.
    [[nodiscard]] virtual QList<QSharedPointer<GoodsItem>> getGoods() const { return m_goods; }
    /// Null when the document has no such position.
    [[nodiscard]] virtual QSharedPointer<GoodsItem> getPosition(int posnum) const;
    /// Adds a position as it is; the caller has numbered it.
    void addPosition(const QSharedPointer<GoodsItem> &position);
    void removePosition(int posnum);
    /// Number for the next position: from 1, and never one that was given before.
    int takeNextPosnum() { return m_nextPosnum++; }
    [[nodiscard]] int getNextPosnum() const { return m_nextPosnum; }
    void setNextPosnum(int posnum) { m_nextPosnum = posnum; }

    /// Sums of all positions before and after discounts and points.
    [[nodiscard]] virtual double getSumBeforeDiscounts() const;
    [[nodiscard]] virtual double getSumAfterDiscounts() const;
    /// Points that pay for the positions; the sum after discounts is less by them.
    [[nodiscard]] double getPointsPaid() const;
    /// Computes the sums of all positions anew.
    virtual void recalculate();
    /// Brings everything that is derived from the document up to date, sums included.
    virtual void refresh();

    /// The card record of that mode; null when there is none.
    [[nodiscard]] virtual QSharedPointer<DocumentCardRecord> getCardRecord(ECardMode mode) const;
    [[nodiscard]] QList<QSharedPointer<DocumentCardRecord>> getCardRecords() const
    {
        return m_cards;
    }
    /// Adds a record and numbers it; one of the same mode is replaced and its number taken over.
    virtual void addCardRecord(const QSharedPointer<DocumentCardRecord> &record);
    /// Number of the loyalty card; empty without one.
    [[nodiscard]] QString getCardNumber() const;

    [[nodiscard]] virtual bool hasCoupons() const { return !m_coupons.isEmpty(); }
    [[nodiscard]] virtual QList<QSharedPointer<Coupon>> getCoupons() const { return m_coupons; }
    /// Null when the document has no such coupon.
    [[nodiscard]] virtual QSharedPointer<Coupon> getCoupon(const QString &number) const;
    virtual void addCoupon(const QSharedPointer<Coupon> &coupon);
    virtual void removeCoupon(const QSharedPointer<Coupon> &coupon);
    virtual void removeCoupons();

    /// What plug-ins keep on the document, by group (the plug-in's name) and key.
    [[nodiscard]] virtual QVariant getStoredValue(
        const QString &group, const QString &key, const QVariant &defaultValue) const;
    virtual void setStoredValue(const QString &group, const QString &key, const QVariant &value);
    virtual void removeStoredValues(const QString &group);
    [[nodiscard]] QMap<QString, QMap<QString, QVariant>> getStoredValues() const
    {
        return m_stored;
    }

    [[nodiscard]] virtual ModifiersContainer &getModifiers() { return m_modifiers; }

    [[nodiscard]] const LoyaltyEffects &getEffects() const { return m_effects; }
    void setEffects(const LoyaltyEffects &effects) { m_effects = effects; }

    /// Text of the loyalty system that is printed with the cheque.
    [[nodiscard]] QString getChequeText() const { return m_chequeText; }
    virtual void setChequeText(const QString &text) { m_chequeText = text; }
    /// Whether the loyalty system is being asked to register the sale or return. On a document that
    /// a till takes up: it was, and nobody knows what came of it.
    [[nodiscard]] bool isRegistrationBegun() const { return m_registrationBegun; }
    void setRegistrationBegun(bool begun) { m_registrationBegun = begun; }
    /// Whether the loyalty system may or may not hold a booking of the sale: taking it back has
    /// begun, or it was asked for again and nobody answered.
    [[nodiscard]] bool isBookingUnknown() const { return m_bookingUnknown; }
    void setBookingUnknown(bool unknown) { m_bookingUnknown = unknown; }

    [[nodiscard]] QList<Payment> getPayments() const { return m_payments; }
    void setPayments(const QList<Payment> &payments) { m_payments = payments; }

private:
    EDocumentType m_type;
    QString m_number;
    EDocumentState m_state = EDocumentState::Open;
    QString m_shop;
    QString m_till;
    QString m_correlationId;
    QDateTime m_opened;
    QDateTime m_closed;
    QString m_referencedNumber;
    QList<QSharedPointer<GoodsItem>> m_goods;
    int m_nextPosnum = 1;
    QList<QSharedPointer<DocumentCardRecord>> m_cards;
    QList<QSharedPointer<Coupon>> m_coupons;
    QMap<QString, QMap<QString, QVariant>> m_stored;
    ModifiersContainer m_modifiers;
    LoyaltyEffects m_effects;
    QString m_chequeText;
    bool m_registrationBegun = false;
    bool m_bookingUnknown = false;
    QList<Payment> m_payments;
};

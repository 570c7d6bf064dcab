#pragma once

#include "host/documents/abstractdocument.h"
#include "host/export.h"
#include "host/framework/basicplugin.h"
#include "host/framework/tr.h"

#include <QFlags>
#include <QList>
#include <QSharedPointer>
#include <QString>
#include <QStringList>
#include <QVariant>

/// What a loyalty system can do, with the host's own codes.
enum class LoyaltySystemOption : int
{
    SpendsPoints = 16,
    EarnsPoints = 64,
    UsesCoupons = 1024,
    WorksOffline = 131072,
};

/// Base of the loyalty systems that the till works with.
///
/// One object per system, made by its plug-in and living as long as the process. The till calls it
/// on its own thread at fixed points of a sale; the current document is the session's. Between
/// calls it holds the effects of the last answer (impacts, bonus records, messages, points), which
/// the till copies onto the document.
class POSHOST_EXPORT BasicLoyaltySystem : public virtual BasicPlugin
{
public:
    BasicLoyaltySystem();
    ~BasicLoyaltySystem() override;

    /// A card is presented. True: accepted, and the till attaches it to the document.
    virtual bool identifyByCard(QSharedPointer<DocumentCardRecord> &card, ECardNumberType type);
    /// The cheque goes to calculation. False: refused, see `getLastErrorString`.
    virtual bool request(const QSharedPointer<AbstractDocument> &document);
    /// A return is closed. False: refused; the return stays open.
    virtual bool commit(const QSharedPointer<AbstractDocument> &document);
    /// A document is cancelled. False: refused; what was granted is kept.
    virtual bool rollback(const QSharedPointer<AbstractDocument> &document);
    /// Leaves the loyalty system's part of the cheque.
    virtual bool cancel();
    /// Points that can be spent on the document.
    virtual double getPointsForSpend(const QSharedPointer<AbstractDocument> &document);
    /// Tells how many points the customer wants to spend; 0: as many as can be spent.
    virtual void setPointsForSpend(const QSharedPointer<AbstractDocument> &document, double points);
    /// Pays with points. False: refused, see `getLastErrorString`.
    virtual bool spendPoints();
    /// Registers the cheque before it is closed; true when it earns points.
    virtual bool hasPointsForEarn();
    /// Takes the state of the current document up again after a restart.
    virtual bool restoreLoyaltySystem();
    virtual void beforePutoutCheck();
    virtual void afterPutoutCheck();
    /// Empties the three effect lists and both message lists and zeroes the three points values;
    /// plug-in data, card and last error stay.
    virtual void clearLoyaltyData();

    [[nodiscard]] const QList<QSharedPointer<DiscountImpact>> &getDiscountImpacts() const;
    [[nodiscard]] const QList<QSharedPointer<BonusImpact>> &getBonusImpactsForSpend() const;
    [[nodiscard]] const QList<DocumentBonusRecord> &getBonusRecords() const;
    [[nodiscard]] QStringList getMessagesToCashier() const { return m_messagesToCashier; }
    [[nodiscard]] QStringList getMessagesToClient() const { return m_messagesToClient; }
    [[nodiscard]] const tr::Tr &getLastErrorString() const { return m_lastError; }
    [[nodiscard]] bool getLastErrorFlag() const { return m_lastErrorFlag; }
    [[nodiscard]] ECardMode getCardMode() const { return m_cardMode; }
    [[nodiscard]] bool hasOption(LoyaltySystemOption option) const;

    /// All effects together, as the till copies them onto the document.
    [[nodiscard]] LoyaltyEffects getEffects() const;
    /// Gives the effects back after a restart.
    void setEffects(const LoyaltyEffects &effects);
    void clearDiscountImpacts() { m_discountImpacts.clear(); }
    void clearBonusImpactsForSpend() { m_bonusImpactsForSpend.clear(); }
    void clearBonusRecords() { m_bonusRecords.clear(); }

protected:
    /// Makes the till use this system; false when one of the same name is registered already.
    bool registerLoyaltySystem();
    void setOption(LoyaltySystemOption option, bool on);

    /// Whether the current document carries a card of this system.
    [[nodiscard]] bool hasCard() const;
    /// That card; null when there is none.
    [[nodiscard]] QSharedPointer<DocumentCardRecord> getCard() const;
    [[nodiscard]] QSharedPointer<AbstractDocument> getCurrentDocument() const;

    /// Keeps a value on the current document under this plug-in's name; without one nothing
    /// happens.
    void setPluginData(const QString &key, const QVariant &value) const;
    [[nodiscard]] QVariant getPluginData(const QString &key, const QVariant &defaultValue) const;
    /// Removes all values that this plug-in keeps on the current document.
    void clearData() const;

    /// Spreads the points of a whole document over its positions in proportion to their sums after
    /// discounts, to kopecks; the last position with a sum takes the rounding. Each piece is the
    /// record with a position (its number as text) and its share; a document without sums gives no
    /// pieces.
    [[nodiscard]] QList<DocumentBonusRecord> distributeBonusRecord(
        const QSharedPointer<AbstractDocument> &document, const DocumentBonusRecord &record) const;

    ECardMode m_cardMode = ECardMode::None;
    QList<QSharedPointer<DiscountImpact>> m_discountImpacts;
    QList<QSharedPointer<BonusImpact>> m_bonusImpactsForSpend;
    QList<DocumentBonusRecord> m_bonusRecords;
    QStringList m_messagesToCashier;
    QStringList m_messagesToClient;
    tr::Tr m_lastError;
    bool m_lastErrorFlag = false; ///< whether the last error is meant for the customer too
    double m_pointsForSpend = 0.0; ///< available: what the service allows to spend
    double m_pointsToSpend = 0.0; ///< chosen: what the customer wants to spend
    double m_pointsForEarn = 0.0;

private:
    int m_options = 0;
};

Q_DECLARE_INTERFACE(BasicLoyaltySystem, "LoyaltySystem")

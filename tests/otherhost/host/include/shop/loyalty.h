#pragma once

#include "shop/cheque.h"
#include "shop/desk.h"

#include <QStringList>
#include <QtPlugin>

/// In the global namespace, where the declarations of Qt's plug-ins look for it.
class SHOP_EXPORT BasicPlugin
{
public:
    virtual ~BasicPlugin();
    virtual bool init() = 0;

protected:
    void setPluginName(const QString &name) { m_name = name; }
    void addTrigger(const shop::ActionTrigger &trigger) { m_triggers.append(trigger); }

private:
    QList<shop::ActionTrigger> m_triggers;
    QString m_name;
};

Q_DECLARE_INTERFACE(BasicPlugin, "Shop.Plugin/1")

namespace shop {
enum class LoyaltySystemOption
{
    SpendsPoints = 16,
    EarnsPoints = 64,
    UsesCoupons = 1024,
    WorksOffline = 131072
};
} // namespace shop

class SHOP_EXPORT BasicLoyaltySystem : virtual public BasicPlugin
{
public:
    virtual bool rollback(const QSharedPointer<shop::AbstractDocument> &) { return true; }
    virtual bool commit(const QSharedPointer<shop::AbstractDocument> &) { return true; }
    virtual bool request(const QSharedPointer<shop::AbstractDocument> &) { return true; }
    virtual bool identifyByCard(QSharedPointer<shop::DocumentCardRecord> &, shop::ECardNumberType)
    {
        return false;
    }
    virtual bool cancel() { return true; }
    virtual double getPointsForSpend(const QSharedPointer<shop::AbstractDocument> &) { return 0; }
    virtual void setPointsForSpend(const QSharedPointer<shop::AbstractDocument> &, double) { }
    virtual bool spendPoints() { return false; }
    virtual bool hasPointsForEarn() { return false; }
    virtual bool restoreLoyaltySystem() { return true; }
    virtual void beforePutoutCheck() { }
    virtual void afterPutoutCheck() { }
    virtual void clearLoyaltyData() { }
#ifdef SHOP_HOST
    const tr::Tr &lastError() const
    {
        return m_lastError;
    }
    static BasicLoyaltySystem *registered();
#endif

protected:
    bool registerLoyaltySystem();
    void setOption(shop::LoyaltySystemOption option, bool on)
    {
        m_options[option] = on;
    }
    bool hasCard() const
    {
        return false;
    }
    QSharedPointer<shop::DocumentCardRecord> getCard() const
    {
        return {};
    }
    QSharedPointer<shop::AbstractDocument> getCurrentDocument() const
    {
        return {};
    }
    void setPluginData(const QString &, const QVariant &) const { }
    QVariant getPluginData(const QString &, const QVariant &otherwise) const
    {
        return otherwise;
    }
    void clearData() const { }
    QList<shop::DocumentBonusRecord> distributeBonusRecord(
        const QSharedPointer<shop::AbstractDocument> &, const shop::DocumentBonusRecord &) const
    {
        return {};
    }

    double m_pointsForEarn = 0;
    double m_pointsForSpend = 0;
    double m_pointsToSpend = 0;
    QStringList m_messagesToCashier;
    QStringList m_messagesToClient;
    QList<QSharedPointer<shop::DiscountImpact>> m_discountImpacts;
    QList<QSharedPointer<shop::BonusImpact>> m_bonusImpactsForSpend;
    QList<shop::DocumentBonusRecord> m_bonusRecords;
    bool m_lastErrorFlag = false;
    tr::Tr m_lastError;
    shop::ECardMode m_cardMode = shop::ECardMode::OnlineLoyalty;

private:
    QMap<shop::LoyaltySystemOption, bool> m_options;
};

Q_DECLARE_INTERFACE(BasicLoyaltySystem, "Shop.LoyaltySystem/1")

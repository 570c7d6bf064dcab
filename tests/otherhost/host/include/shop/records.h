#pragma once

#include "shop/export.h"

#include <QDateTime>
#include <QList>
#include <QObject>
#include <QSharedPointer>
#include <QString>
#include <QVariant>

namespace EImpactSource {
enum source
{
    LoyaltySystem = 2
};
} // namespace EImpactSource
namespace EDiscountObject {
enum type
{
    Position = 1
};
} // namespace EDiscountObject
namespace EDiscountMode {
enum type
{
    Automatic = 2
};
} // namespace EDiscountMode
namespace EDiscountType {
enum type
{
    Percentage = 1,
    Points = 5
};
} // namespace EDiscountType

namespace shop {

enum class ECardMode : short
{
    OnlineLoyalty = 23
};
enum class ECardNumberType
{
    Keyed
};
enum class ClientOptions
{
    ElectronicCheque = 1,
    ChequeByEmail = 2
};

class CardGroup
{
public:
    void setName(const QString &name) { m_name = name; }
    void setCardMode(ECardMode mode) { m_mode = mode; }

private:
    QString m_name;
    ECardMode m_mode = ECardMode::OnlineLoyalty;
};

class Client
{
public:
    void setName(const QString &name) { m_name = name; }
    void setEmail(const QString &email) { m_email = email; }
    void setOption(ClientOptions option) { m_options += int(option); }
#ifdef SHOP_HOST
    QString name() const
    {
        return m_name;
    }
#endif

private:
    QString m_name;
    QString m_email;
    int m_options = 0;
};

class Card
{
public:
    const QString &getNumber() const { return m_number; }
    void setNumber(const QString &number) { m_number = number; }
    void setCardGroup(const QSharedPointer<CardGroup> &group) { m_group = group; }
    void setClient(const QSharedPointer<Client> &client) { m_client = client; }
#ifdef SHOP_HOST
    QSharedPointer<Client> client() const
    {
        return m_client;
    }
#endif

private:
    QSharedPointer<Client> m_client;
    QSharedPointer<CardGroup> m_group;
    QString m_number;
};

class DocumentCardRecord
{
public:
    explicit DocumentCardRecord(QSharedPointer<Card> card)
        : m_card(card)
    { }

    QSharedPointer<Card> getCard() const { return m_card; }
    QVariant getNumber() const { return m_card->getNumber(); }
    int getCodeInternal() const { return 1; }
    void setBonusBalance(const QVariant &balance) { m_balance = balance; }
    void setPointsForSpend(double points) { m_points = points; }
    void setPointsForEarn(const QVariant &points) { m_earned = points; }
    QString getOperationId() const { return m_operation; }
    void setOperationId(const QString &id) { m_operation = id; }
    QVariant getOperationInfo() const { return m_info; }
    void setOperationInfo(const QVariant &info) { m_info = info; }
#ifdef SHOP_HOST
    QVariant balance() const
    {
        return m_balance;
    }
#endif

private:
    QVariant m_info;
    QVariant m_earned;
    QVariant m_balance;
    double m_points = 0;
    QString m_operation;
    QSharedPointer<Card> m_card;
};

class Coupon
{
public:
    QString getNumber() const { return m_number; }
    void setDisplayedNumber(const QString &text) { m_shown = text; }

private:
    QString m_number;
    QString m_shown;
};

class SHOP_EXPORT TmcIndexPrice : public QObject
{
    Q_OBJECT

public:
    int getCode() const { return 0; }
    double getPrice() const { return 0; }
};

class TmcUnit
{
public:
    bool isFractional() const { return false; }
};

/// No article of this shop has further prices.
class Tmc
{
public:
    QList<QSharedPointer<TmcIndexPrice>> getIndexPrices() const { return {}; }
    bool hasIndexPrice(int) const { return false; }
    QSharedPointer<TmcIndexPrice> getIndexPrice(int) const { return {}; }
};

class SHOP_EXPORT GoodsItem : public QObject
{
    Q_OBJECT

public:
    int getPosnum() const { return m_number; }
    QString getCode() const { return m_code; }
    double getPrice() const { return m_price; }
    double getBquant() const { return m_quantity; }
    double getSumn() const { return m_price * m_quantity; }
    double getSumb() const { return m_price * m_quantity; }
    double getMinRetailPrice() const { return m_least; }
    void setMinRetailPrice(double price) { m_least = price; }
    QString getExtendedOptions() const { return {}; }
    QSharedPointer<Tmc> getTmc() const { return {}; }
    TmcUnit getTmcUnit() const { return {}; }
    void setUniteAvailableProp(bool) { }
    void setRecalcable(bool) { }

private:
    double m_quantity = 1;
    double m_price = 0;
    double m_least = 0;
    int m_number = 1;
    QString m_code;
};

/// Impacts and points of this shop are shown to nobody: it asks for balances only.
class DocumentImpactDetail
{
public:
    void setDateTime(const QDateTime &) { }
    void setImpactSource(EImpactSource::source) { }
    void setDiscountObject(EDiscountObject::type) { }
    void setPosition(int) { }
    void setDiscountMode(EDiscountMode::type) { }
    void setDiscountType(EDiscountType::type) { }
    void setDiscountRate(const QVariant &) { }
    void setDiscountSum(double) { }
    void setDiscountName(const QString &) { }
    void setMinPriceIgnored(bool) { }
    void setCardRecord(const QSharedPointer<DocumentCardRecord> &) { }
    void setCardIndex(const QVariant &) { }
};

struct DiscountImpact
{
    explicit DiscountImpact(const QSharedPointer<DocumentImpactDetail> &) { }
};

struct BonusImpact
{
    explicit BonusImpact(const QSharedPointer<DocumentImpactDetail> &) { }
    void addDetailForPosition(int, double) { }
};

struct DocumentBonusRecord
{
    void setCardNumber(const QString &) { }
    void setPosition(const QVariant &) { }
    void setAmount(double) { }
    void setCampaignCode(int) { }
    void setCampaignName(const QString &) { }
    void setGivenForPosition(bool) { }
    void setDateTime(const QDateTime &) { }
};

} // namespace shop

#include "host/framework/basicloyaltysystem.h"

#include "host/documents/money.h"
#include "host/framework/loyaltysystems.h"
#include "host/framework/session.h"

BasicLoyaltySystem::BasicLoyaltySystem() = default;

BasicLoyaltySystem::~BasicLoyaltySystem()
{
    Singleton<LoyaltySystems>::instance()->remove(this);
}

bool BasicLoyaltySystem::identifyByCard(QSharedPointer<DocumentCardRecord> &, ECardNumberType)
{
    return false;
}

bool BasicLoyaltySystem::request(const QSharedPointer<AbstractDocument> &)
{
    return false;
}

bool BasicLoyaltySystem::commit(const QSharedPointer<AbstractDocument> &)
{
    return false;
}

bool BasicLoyaltySystem::rollback(const QSharedPointer<AbstractDocument> &)
{
    return false;
}

bool BasicLoyaltySystem::cancel()
{
    return false;
}

double BasicLoyaltySystem::getPointsForSpend(const QSharedPointer<AbstractDocument> &)
{
    return m_pointsForSpend;
}

void BasicLoyaltySystem::setPointsForSpend(const QSharedPointer<AbstractDocument> &, double points)
{
    m_pointsToSpend = points;
}

bool BasicLoyaltySystem::spendPoints()
{
    return false;
}

bool BasicLoyaltySystem::hasPointsForEarn()
{
    return false;
}

bool BasicLoyaltySystem::restoreLoyaltySystem()
{
    return false;
}

void BasicLoyaltySystem::beforePutoutCheck() { }

void BasicLoyaltySystem::afterPutoutCheck() { }

void BasicLoyaltySystem::clearLoyaltyData()
{
    setEffects({});
}

const QList<QSharedPointer<DiscountImpact>> &BasicLoyaltySystem::getDiscountImpacts() const
{
    return m_discountImpacts;
}

const QList<QSharedPointer<BonusImpact>> &BasicLoyaltySystem::getBonusImpactsForSpend() const
{
    return m_bonusImpactsForSpend;
}

const QList<DocumentBonusRecord> &BasicLoyaltySystem::getBonusRecords() const
{
    return m_bonusRecords;
}

bool BasicLoyaltySystem::hasOption(LoyaltySystemOption option) const
{
    return (m_options & static_cast<int>(option)) != 0;
}

LoyaltyEffects BasicLoyaltySystem::getEffects() const
{
    return {m_discountImpacts, m_bonusImpactsForSpend, m_bonusRecords, m_messagesToCashier,
        m_messagesToClient, m_pointsForSpend, m_pointsToSpend, m_pointsForEarn};
}

void BasicLoyaltySystem::setEffects(const LoyaltyEffects &effects)
{
    m_discountImpacts = effects.discountImpacts;
    m_bonusImpactsForSpend = effects.bonusImpacts;
    m_bonusRecords = effects.bonusRecords;
    m_messagesToCashier = effects.messagesToCashier;
    m_messagesToClient = effects.messagesToClient;
    m_pointsForSpend = effects.pointsAvailable;
    m_pointsToSpend = effects.pointsChosen;
    m_pointsForEarn = effects.pointsEarned;
}

bool BasicLoyaltySystem::registerLoyaltySystem()
{
    return Singleton<LoyaltySystems>::instance()->add(this);
}

void BasicLoyaltySystem::setOption(LoyaltySystemOption option, bool on)
{
    const int bit = static_cast<int>(option);
    m_options = on ? m_options | bit : m_options & ~bit;
}

bool BasicLoyaltySystem::hasCard() const
{
    return !getCard().isNull();
}

QSharedPointer<DocumentCardRecord> BasicLoyaltySystem::getCard() const
{
    const auto document = getCurrentDocument();
    return document ? document->getCardRecord(m_cardMode) : QSharedPointer<DocumentCardRecord>();
}

QSharedPointer<AbstractDocument> BasicLoyaltySystem::getCurrentDocument() const
{
    return Singleton<Session>::instance()->getCurrentDocument();
}

void BasicLoyaltySystem::setPluginData(const QString &key, const QVariant &value) const
{
    if (const auto document = getCurrentDocument())
        document->setStoredValue(getPluginName(), key, value);
}

QVariant BasicLoyaltySystem::getPluginData(const QString &key, const QVariant &defaultValue) const
{
    const auto document = getCurrentDocument();
    return document ? document->getStoredValue(getPluginName(), key, defaultValue) : defaultValue;
}

void BasicLoyaltySystem::clearData() const
{
    if (const auto document = getCurrentDocument())
        document->removeStoredValues(getPluginName());
}

QList<DocumentBonusRecord> BasicLoyaltySystem::distributeBonusRecord(
    const QSharedPointer<AbstractDocument> &document, const DocumentBonusRecord &record) const
{
    QList<DocumentBonusRecord> pieces;
    double sumLeft = document ? document->getSumAfterDiscounts() : 0.0;
    double amountLeft = record.getAmount();
    const auto positions = document ? document->getGoods() : QList<QSharedPointer<GoodsItem>>();
    for (const auto &position : positions) {
        if (!money::counts(position->getSumb()))
            continue;
        // A share of what is left, not of the whole: the last position takes the rounding.
        const double share = money::roundedToKopecks(amountLeft * position->getSumb() / sumLeft);
        sumLeft -= position->getSumb();
        amountLeft -= share;
        DocumentBonusRecord piece = record;
        piece.setPosition(QString::number(position->getPosnum()));
        piece.setAmount(share);
        pieces.append(piece);
    }
    return pieces;
}

#include "tests/plugin/observedplugin.h"

using namespace Qt::Literals::StringLiterals;

bool ObservedPlugin::rollback(const QSharedPointer<AbstractDocument> &document)
{
    m_story.step(u"rollback operation"_s);
    return KorvelLoyaltyOnline::rollback(document);
}

bool ObservedPlugin::cancel()
{
    m_story.step(u"cancel operation"_s);
    return KorvelLoyaltyOnline::cancel();
}

void ObservedPlugin::fillDiscountImpacts(const QMap<QString, QVariant> &result)
{
    m_story.step(u"fillDiscountImpacts"_s);
    KorvelLoyaltyOnline::fillDiscountImpacts(result);
}

void ObservedPlugin::fillChequeData(const QMap<QString, QVariant> &result) const
{
    m_story.step(u"fillChequeData"_s);
    KorvelLoyaltyOnline::fillChequeData(result);
}

void ObservedPlugin::fillPositionsData(const QMap<QString, QVariant> &result) const
{
    m_story.step(u"fillPositionsData"_s);
    KorvelLoyaltyOnline::fillPositionsData(result);
}

void ObservedPlugin::interchangeStickers(QMap<QString, QVariant> &result)
{
    m_story.step(u"interchangeStickers"_s);
    if (exchange)
        exchange(result);
    else
        KorvelLoyaltyOnline::interchangeStickers(result);
}

void ObservedPlugin::removeStickersActions(
    const QMap<QString, QVariant> &result, const QSet<QString> &positions) const
{
    m_story.step(u"removeStickersActions"_s);
    KorvelLoyaltyOnline::removeStickersActions(result, positions);
}

void ObservedPlugin::setOfflineMode()
{
    m_story.step(u"setOfflineMode"_s);
    KorvelLoyaltyOnline::setOfflineMode();
}

void ObservedPlugin::removeCoupons(const QSharedPointer<AbstractDocument> &document) const
{
    m_story.step(u"removeCoupons"_s);
    KorvelLoyaltyOnline::removeCoupons(document);
}

void ObservedPlugin::clearLoyaltyData()
{
    m_story.step(u"clearLoyaltyData"_s);
    KorvelLoyaltyOnline::clearLoyaltyData();
}

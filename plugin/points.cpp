#include "plugin/korvelloyaltyonline.h"

double KorvelLoyaltyOnline::getPointsForSpend(const QSharedPointer<AbstractDocument> &)
{
    return m_pointsForSpend;
}

void KorvelLoyaltyOnline::setPointsForSpend(const QSharedPointer<AbstractDocument> &, double points)
{
    m_pointsToSpend = points;
}

bool KorvelLoyaltyOnline::spendPoints()
{
    return BasicLoyaltySystem::spendPoints();
}

QString KorvelLoyaltyOnline::inputVerificationCode() const
{
    return {};
}

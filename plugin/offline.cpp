#include "common/names.h"
#include "plugin/korvelloyaltyonline.h"
#include "plugin/messages.h"
#include "plugin/saving.h"
#include <log4qt/logger.h>

void KorvelLoyaltyOnline::goOfflineAfterInternalError(
    const QSharedPointer<AbstractDocument> &document, const KorvelInternalErrorException &error)
{
    logger->error(error.tr().ru());
    if (document->hasCoupons())
        removeCoupons(document);
    else
        showInternalError();
    m_pointsForSpend = 0.0;
    cancelExternalDiscount(document);
    cancelBonusUsage();
    // Last, because forgetting the cheque above also forgets that it is offline.
    setOfflineMode();
}

void KorvelLoyaltyOnline::goOfflineWithoutConnection(
    const QSharedPointer<AbstractDocument> &document, const QMap<QString, QVariant> &result)
{
    cancelBonusUsage();
    removeStickersActions(result, {});
    m_pointsForSpend = 0.0;
    if (document->hasCoupons())
        removeCoupons(document);
    else
        showNoConnection();
    setOfflineMode();
}

void KorvelLoyaltyOnline::setOfflineMode()
{
    offlineMode = true;
    setPluginData(korvel::plugindata::offlineMode, true);
    saveDocument(getCurrentDocument());
}

bool KorvelLoyaltyOnline::restoreLoyaltySystem()
{
    m_pointsForSpend = getPluginData(korvel::plugindata::pointsForSpend, {}).toDouble();
    notUseStickers = getPluginData(korvel::plugindata::notUseStickers, {}).toBool();
    offlineMode = getPluginData(korvel::plugindata::offlineMode, {}).toBool();
    return true;
}

void KorvelLoyaltyOnline::showNoConnection() const
{
    messages::show(messages::noConnection());
}

void KorvelLoyaltyOnline::showInternalError() const
{
    messages::show(messages::internalError());
}

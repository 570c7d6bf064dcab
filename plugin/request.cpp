#include "common/names.h"
#include "plugin/korvelloyaltyonline.h"
#include "plugin/resultmap.h"
#include "plugin/saving.h"
#include <log4qt/logger.h>

using namespace Qt::Literals::StringLiterals;

bool KorvelLoyaltyOnline::request(const QSharedPointer<AbstractDocument> &document)
{
    logger->info(u"Запрос к бонусной системе"_s);
    if (offlineMode || !hasCard())
        return true;
    QMap<QString, QVariant> result;
    try {
        request(document, result);
        applyCalculation(document, result);
    } catch (const KorvelInternalErrorException &error) {
        goOfflineAfterInternalError(document, error);
    } catch (const KorvelNoConnectionException &) {
        goOfflineWithoutConnection(document, result);
    } catch (const KorvelException &error) {
        m_lastError = error.tr();
        return false;
    }
    return true;
}

void KorvelLoyaltyOnline::request(
    const QSharedPointer<AbstractDocument> &document, QMap<QString, QVariant> &result)
{
    interface->saleChequeRequest(document, korvel::chequetype::soft, makeConfirmation(), result);
    const double available = resultmap::amount(result, korvel::result::availablePayment);
    getCard()->setPointsForSpend(available);
    m_pointsForSpend = available;
}

void KorvelLoyaltyOnline::applyCalculation(
    const QSharedPointer<AbstractDocument> &document, QMap<QString, QVariant> &result)
{
    if (money::counts(resultmap::amount(result, korvel::result::discount)))
        fillDiscountImpacts(result);
    takeOverMessages(result);
    setPaidByBonus(0.0);
    fillChequeData(result);
    fillPositionsData(result);
    returnInapplicableCoupons(document, result);
    interchangeStickers(result);
    setPluginData(korvel::plugindata::pointsForSpend, m_pointsForSpend);
    saveDocument(document);
}

void KorvelLoyaltyOnline::takeOverMessages(const QMap<QString, QVariant> &result)
{
    if (const auto toCashier = resultmap::messages(result, korvel::result::cashierMessage))
        m_messagesToCashier = *toCashier;
    if (const auto toClient = resultmap::messages(result, korvel::result::chequeMessage))
        m_messagesToClient = *toClient;
}

QSharedPointer<korvel::ConfirmationInfo> KorvelLoyaltyOnline::makeConfirmation() const
{
    if (!useConfirmation)
        return {};
    return QSharedPointer<korvel::ConfirmationInfo>::create();
}

#include "client/amounts.h"
#include "common/names.h"
#include "plugin/korvelloyaltyonline.h"
#include "plugin/messages.h"
#include "plugin/resultmap.h"
#include "plugin/saving.h"
#include "plugin/verification.h"
#include <log4qt/logger.h>

using namespace Qt::Literals::StringLiterals;

namespace {

namespace key = korvel::result;
namespace stored = korvel::plugindata;

} // namespace

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
    const auto card = getCard();
    if (!card)
        return false;
    if (money::equal(m_pointsToSpend, 0.0))
        m_pointsToSpend = m_pointsForSpend;
    logger->info(u"Создание оплаты бонусами в виде скидки на сумму %1, по карте %2"_s.arg(
        korvelLoyaltyOnline::amountText(m_pointsToSpend), card->getNumber().toString()));
    // Not filled again: a cheque paid with points carries the payment and no discount of ours.
    m_discountImpacts.clear();
    setPaidByBonus(m_pointsToSpend);
    const auto document = getCurrentDocument();
    try {
        payWithPoints(document, card);
    } catch (const KorvelInternalErrorException &error) {
        goOfflineAfterInternalError(document, error);
    } catch (const KorvelNoConnectionException &) {
        goOfflineWithoutPoints();
    } catch (const KorvelException &error) {
        m_lastError = error.tr();
        cancelBonusUsage();
        return false;
    }
    return true;
}

void KorvelLoyaltyOnline::payWithPoints(const QSharedPointer<AbstractDocument> &document,
    const QSharedPointer<DocumentCardRecord> &card)
{
    const auto confirmation = makeConfirmation();
    const bool asksForCode
        = confirmation && verification::isRequired(m_pointsToSpend, noConfirmationBonusLimit);
    if (asksForCode) {
        confirmation->setConfirm(true);
        confirmation->setSendCode(true);
    }
    QMap<QString, QVariant> result;
    const bool tooFewPoints
        = interface->saleChequeRequest(document, korvel::chequetype::soft, confirmation, result);
    if (tooFewPoints) {
        takeOverAvailablePoints(document, card, result);
        throw KorvelException(messages::insufficientBonusBalance());
    }
    if (asksForCode)
        verifyWriteOff(result);
    applyPayment(document, result);
}

void KorvelLoyaltyOnline::takeOverAvailablePoints(const QSharedPointer<AbstractDocument> &document,
    const QSharedPointer<DocumentCardRecord> &card, const QMap<QString, QVariant> &result)
{
    m_pointsForSpend = resultmap::amount(result, key::availablePayment);
    setPluginData(stored::pointsForSpend, m_pointsForSpend);
    fillChequeData(result);
    fillPositionsData(result);
    card->setBonusBalance(resultmap::amount(result, key::cardNormalActiveBalance));
    card->setPointsForSpend(m_pointsForSpend);
    saveDocument(document);
    document->refresh();
}

void KorvelLoyaltyOnline::applyPayment(
    const QSharedPointer<AbstractDocument> &document, const QMap<QString, QVariant> &result)
{
    fillChequeData(result);
    fillPositionsData(result);
    // Stickers that were declined must not come back with the new answer.
    if (notUseStickers)
        removeStickersActions(result, {});
    fillBonusImpacts(result);
    takeOverMessages(result);
    saveDocument(document);
}

void KorvelLoyaltyOnline::goOfflineWithoutPoints()
{
    m_pointsForSpend = 0.0;
    setPluginData(stored::pointsForSpend, m_pointsForSpend);
    m_pointsToSpend = 0.0;
    cancelBonusUsage();
    showNoConnection();
    setOfflineMode();
}

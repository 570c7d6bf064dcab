#include "common/names.h"
#include "plugin/korvelloyaltyonline.h"
#include "plugin/messages.h"
#include "plugin/resultmap.h"
#include "plugin/saving.h"
#include <log4qt/logger.h>

#include <QDate>

using namespace Qt::Literals::StringLiterals;

namespace {

namespace key = korvel::result;

bool isReturn(const AbstractDocument &document)
{
    return document.isOperation({EDocumentType::ReturnOfSale, EOperationKind::GoodsComeBack},
        EOperationKind::GoodsComeBack);
}

/// The day on which the service processed the cheque; an invalid date where its text is none.
QVariant transactionDate(const QMap<QString, QVariant> &result)
{
    return QDate::fromString(result.value(key::processed).toString(), Qt::ISODate);
}

void noteRegistration(DocumentCardRecord &card, const QMap<QString, QVariant> &result)
{
    card.setPointsForEarn(resultmap::earned(result));
    card.setPointsForSpend(resultmap::amount(result, key::writeoffBonus));
    card.setBonusBalance(result.value(key::cardNormalActiveBalance));
    card.setOperationId(result.value(key::transactionId).toString());
    auto information = card.getOperationInfo().toMap();
    information.insert(korvel::operationinfo::transactionDate, transactionDate(result));
    card.setOperationInfo(information);
}

void printWithCheque(AbstractDocument &document, const QMap<QString, QVariant> &result)
{
    document.setChequeText(result.value(key::chequeMessage).toStringList().join(u"##"_s));
}

} // namespace

bool KorvelLoyaltyOnline::hasPointsForEarn()
{
    logger->info(u"Запрос баллов для начисления"_s);
    const auto card = getCard();
    const auto document = getCurrentDocument();
    if (!card || isReturn(*document) || offlineMode)
        return false;
    // Registered before: only the answer of then is reported again.
    if (!card->getOperationId().isEmpty())
        return !m_bonusRecords.isEmpty();
    try {
        applyRegistration(document, card, registerCheque(document));
    } catch (const KorvelNoConnectionException &) {
        showNoConnection();
        setOfflineMode();
        return false;
    }
    return !m_bonusRecords.isEmpty();
}

QMap<QString, QVariant> KorvelLoyaltyOnline::registerCheque(
    const QSharedPointer<AbstractDocument> &document) const
{
    const auto confirmation = makeConfirmation();
    const QString code = getPluginData(korvel::plugindata::verificationCode, {}).toString();
    if (confirmation && !code.isEmpty()) {
        confirmation->setConfirm(true);
        confirmation->setVerificationCode(code);
    }
    QMap<QString, QVariant> result;
    const bool tooFewPoints
        = interface->saleChequeRequest(document, korvel::chequetype::fiscal, confirmation, result);
    if (tooFewPoints)
        throw KorvelException(messages::checkRegistrationError());
    return result;
}

void KorvelLoyaltyOnline::applyRegistration(const QSharedPointer<AbstractDocument> &document,
    const QSharedPointer<DocumentCardRecord> &card, const QMap<QString, QVariant> &result)
{
    m_pointsForEarn = resultmap::earned(result);
    if (money::counts(m_pointsForEarn))
        fillBonusRecords(result);
    noteRegistration(*card, result);
    if (const auto toCashier = resultmap::messages(result, key::cashierMessage)) {
        m_messagesToCashier = *toCashier;
        // Deliberately only together with a message for the cashier: the two come as a pair, and
        // without it the text of the cheque is left alone.
        printWithCheque(*document, result);
    }
    if (resultmap::isPresent(result, key::couponsToPrint))
        couponsToPrint = result.value(key::couponsToPrint).toList();
    saveDocument(document);
}

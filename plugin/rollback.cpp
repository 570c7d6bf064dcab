#include "common/names.h"
#include "plugin/korvelloyaltyonline.h"
#include "plugin/saving.h"
#include <log4qt/logger.h>

using namespace Qt::Literals::StringLiterals;

bool KorvelLoyaltyOnline::rollback(const QSharedPointer<AbstractDocument> &document)
{
    logger->info(u"Отмена операций в бонусной системе Korvel Loyalty Online"_s);
    if (offlineMode)
        return true;
    try {
        undoRegistration(document, getCard());
    } catch (const KorvelException &error) {
        m_lastError = error.tr();
        return false;
    }
    clearData();
    if (document->getType() != EDocumentType::Correction)
        saveDocument(document);
    clearLoyaltyData();
    return true;
}

void KorvelLoyaltyOnline::undoRegistration(const QSharedPointer<AbstractDocument> &document,
    const QSharedPointer<DocumentCardRecord> &card) const
{
    if (!card || card->getOperationId().isEmpty())
        return;
    QMap<QString, QVariant> result;
    interface->rollbackChequeRequest(document, result);
    card->setPointsForSpend(0.0);
    card->setPointsForEarn({});
    card->setOperationId({});
    card->setOperationInfo({});
    card->setBonusBalance(result.value(korvel::result::cardNormalActiveBalance));
}

bool KorvelLoyaltyOnline::cancel()
{
    return true;
}

void KorvelLoyaltyOnline::cancelExternalDiscount(const QSharedPointer<AbstractDocument> &document)
{
    logger->info(u"Удаление внешних скидок"_s);
    // Whether the service could be told makes no difference: what it granted goes in any case.
    rollback(document);
    cancel();
    MockFactory<DiscountLogic>::create()->process(document, EDiscountProcessing::RemoveLoyalty);
    document->recalculate();
}

void KorvelLoyaltyOnline::beforePutoutCheck() { }

void KorvelLoyaltyOnline::afterPutoutCheck()
{
    clearLoyaltyData();
}

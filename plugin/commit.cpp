#include "plugin/korvelloyaltyonline.h"
#include <log4qt/logger.h>

using namespace Qt::Literals::StringLiterals;

namespace {

bool isReturn(const AbstractDocument &document)
{
    const EDocumentType type = document.getType();
    return type == EDocumentType::ReturnOfSale || type == EDocumentType::ReturnWithoutSale;
}

QSharedPointer<AbstractDocument> copyForSending(const QSharedPointer<AbstractDocument> &document)
{
    auto made = Singleton<DocumentFactory>::instance()->makeDocument(document);
    const auto positions = made->getGoods();
    for (const auto &position : positions)
        position->setRecalcable(true);
    MockFactory<DiscountLogic>::create()->process(made, EDiscountProcessing::PrepareForSending);
    return made;
}

} // namespace

bool KorvelLoyaltyOnline::commit(const QSharedPointer<AbstractDocument> &document)
{
    logger->info(u"Подтверждение операций в бонусной системе Korvel Loyalty Online"_s);
    if (!hasCard() || !isReturn(*document))
        return true;
    const auto made = copyForSending(document);
    try {
        interface->returnChequeRequest(made);
    } catch (const KorvelInternalErrorException &error) {
        m_lastError = error.tr();
        return false;
    } catch (const KorvelNoConnectionException &) {
        showNoConnection();
        interface->returnChequeRequestOffline(made);
    } catch (const KorvelException &error) {
        m_lastError = error.tr();
        return false;
    }
    return true;
}

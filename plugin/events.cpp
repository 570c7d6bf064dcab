#include "plugin/korvelloyaltyonline.h"
#include "plugin/messages.h"

using namespace Qt::Literals::StringLiterals;

void KorvelLoyaltyOnline::handleEvent(const Event &event)
{
    switch (event.getCode()) {
    case EActivityListener::ChequeClosed:
        finishCheque(getCurrentDocument());
        break;
    case EActivityListener::ChequeCancelled:
    case EActivityListener::DocumentEntered:
        clearLoyaltyData();
        break;
    default:
        break;
    }
}

void KorvelLoyaltyOnline::finishCheque(const QSharedPointer<AbstractDocument> &document)
{
    if (!document || document->getType() != EDocumentType::Sale
        || !document->getCardRecord(m_cardMode))
        return;
    printCoupons(couponsToPrint);
    if (offlineMode)
        queueOffline(document);
    clearLoyaltyData();
}

void KorvelLoyaltyOnline::queueOffline(const QSharedPointer<AbstractDocument> &document) const
{
    const auto made = Singleton<DocumentFactory>::instance()->makeDocument(document);
    MockFactory<DiscountLogic>::create()->process(made, EDiscountProcessing::PrepareForSending);
    interface->saleChequeRequestOffline(made);
}

void KorvelLoyaltyOnline::sendStartEvent() const
{
    Event event(EActivityListener::LoyaltyRequestStarted);
    event.addArgument(u"message"_s, messages::processLoyalty());
    Singleton<ActivityNotifier>::instance()->notify(event);
}

void KorvelLoyaltyOnline::sendStopEvent() const
{
    Singleton<ActivityNotifier>::instance()->notify(
        Event(EActivityListener::LoyaltyRequestFinished));
}

// Documents end: they are closed or cancelled.

#include "host/documents/money.h"
#include "host/framework/basicexception.h"
#include "host/framework/currenttime.h"
#include "host/printing/receipt.h"
#include "host/printing/textprinter.h"
#include "host/queue/dbqueuebroker.h"
#include "till/core/cannotdo.h"
#include "till/core/pluginguard.h"
#include "till/core/till.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace till {

namespace {

tr::Tr registrationUnknown()
{
    return {u"tillRegistrationUnknown"_s,
        u"Чек, возможно, уже зарегистрирован в системе лояльности, а связи с ней нет. Закройте чек "
        u"и "
        u"оформите возврат"_s};
}

tr::Tr returnUnknown()
{
    return {u"tillReturnUnknown"_s,
        u"Возврат, возможно, уже проведён в системе лояльности. Закройте его"_s};
}

tr::Tr chequeQueued()
{
    return {u"tillChequeQueued"_s,
        u"Чек уже в очереди отправки и будет зарегистрирован. Закройте чек и оформите возврат"_s};
}

bool isToBeBooked(const QueueMessage &message)
{
    return message.state != MessageState::Refused;
}

// What cannot be looked up is taken for queued: a cheque that is closed needlessly can be returned.
bool isQueued(const AbstractDocument &document)
{
    try {
        const auto messages
            = Singleton<DBQueueBroker>::instance()->inOffice([&document](QueueOffice &office) {
                  return office.ofDocument(document.getCorrelationId());
              });
        return std::any_of(messages.cbegin(), messages.cend(), isToBeBooked);
    } catch (const BasicException &) {
        return true;
    }
}

} // namespace

Outcome Till::close()
{
    if (openDocument()->getGoods().isEmpty())
        throw CannotDo({u"cannotCloseEmpty"_s, u"в документе нет позиций"_s},
            {u"cannotCloseEmptyRemedy"_s, u"добавьте позицию или отмените документ"_s});
    requireRightlyPaid();
    Outcome outcome;
    if (!confirmClosing(outcome)) {
        keep();
        return outcome;
    }
    payRest();
    putOut(outcome);
    deliverAfterClose(outcome);
    return outcome;
}

bool Till::confirmClosing(Outcome &outcome)
{
    if (document()->getType() == EDocumentType::Sale) {
        registerSale(outcome);
        return !outcome.refusal;
    }
    commitReturn(outcome);
    return outcome.result.toBool();
}

// A till that is killed in between does not know whether the service has booked the return, which
// cannot be taken back. Asked again, the service may refuse one that waits in the queue, since the
// sale waits there too: it will be booked all the same.
void Till::commitReturn(Outcome &outcome)
{
    const auto open = document();
    const bool wasBegun = open->isRegistrationBegun();
    if (open->getCardRecord(m_system->getCardMode())) {
        open->setRegistrationBegun(true);
        keep();
    }
    request(outcome, u"commit"_s, [&] { return m_system->commit(open); });
    open->setRegistrationBegun(wasBegun && outcome.refusal && isQueued(*open));
}

// What a registration brings is not kept before the cheque is closed. A till that is killed in
// between asks for it again, and gets the same answer with everything that is still to be printed.
void Till::registerSale(Outcome &outcome)
{
    const QString doubtful = takeDoubtfulBooking();
    // The records of a registered cheque are its answer when it is asked again.
    if (!isRegistered()) {
        m_system->clearBonusRecords();
        document()->setRegistrationBegun(true);
        keep();
    }
    // Its false is an answer: the cheque earns nothing.
    announce(outcome, [&] {
        guarded(
            outcome, u"hasPointsForEarn"_s, [&] { outcome.result = m_system->hasPointsForEarn(); });
    });
    document()->setRegistrationBegun(false);
    if (outcome.refusal && !doubtful.isEmpty())
        document()->getCardRecord(m_system->getCardMode())->setOperationId(doubtful);
    else if (isRegistered())
        document()->setBookingUnknown(false);
}

// A booking that was being taken back may be gone. Without its number the sale is registered anew,
// which the service counts once if it has not.
QString Till::takeDoubtfulBooking() const
{
    if (!isRegistered() || !document()->isBookingUnknown())
        return {};
    const auto card = document()->getCardRecord(m_system->getCardMode());
    QString doubtful = card->getOperationId();
    card->setOperationId({});
    return doubtful;
}

void Till::putOut(Outcome &outcome)
{
    const auto closed = document();
    closed->setState(EDocumentState::Closed);
    closed->setClosed(MockFactory<CurrentTime>::create()->currentDateTime());
    guarded(outcome, u"beforePutoutCheck"_s, [this] { m_system->beforePutoutCheck(); });
    printReceipt(outcome);
    notify(outcome, Event(EActivityListener::ChequeClosed));
    guarded(outcome, u"afterPutoutCheck"_s, [this] { m_system->afterPutoutCheck(); });
    // Only now: a till that is killed before goes on with the open document and, offline, queues it
    // once more, which the service counts once. The other order could lose it.
    m_store.close(closed);
    leave(outcome);
}

// A sale that was registered carries the registration's id. A return carries none; it was queued
// unless the exchange of its commit succeeded.
receipt::Booking Till::booking() const
{
    const auto card = document()->getCardRecord(ECardMode::OnlineLoyalty);
    const bool isBooked = document()->getType() == EDocumentType::Sale
        ? card && !card->getOperationId().isEmpty()
        : m_exchanges.lastSucceeded();
    return isBooked ? receipt::Booking::Done : receipt::Booking::Later;
}

// An open sale is booked when it is closed, as long as the service answers.
receipt::Booking Till::expectedBooking() const
{
    return isRegistered() || m_exchanges.lastSucceeded() ? receipt::Booking::Done
                                                         : receipt::Booking::Later;
}

QString Till::receiptPreview() const
{
    if (!document())
        return {};
    try {
        return TextPrinter::sheets(receipt::templateName, {},
            receipt::data(*document(), expectedBooking()), TextPrinter::defaultCopies, true);
    } catch (const BasicException &error) {
        return error.tr().ui();
    }
}

// Not by the factory's printer, which is the plug-in's.
void Till::printReceipt(Outcome &outcome) const
{
    try {
        TextPrinter().print(receipt::templateName, {}, receipt::data(*document(), booking()),
            TextPrinter::defaultCopies, true);
    } catch (const BasicException &error) {
        outcome.notices.append(error.tr());
    }
}

// The till was killed while the document was being registered. What is in the queue will be booked,
// and a return that is booked stays so. Otherwise only asked again the service says
// whether it has booked it, and under which number that can be taken back. A cheque that went
// offline before asks nothing, and has nothing booked.
bool Till::settleBegunRegistration(Outcome &outcome)
{
    const auto begun = document();
    if (!begun->isRegistrationBegun())
        return true;
    const bool isSale = begun->getType() == EDocumentType::Sale;
    if (!isSale || isQueued(*begun)) {
        outcome.notices.append(isSale ? chequeQueued() : returnUnknown());
        return false;
    }
    const int exchanges = m_exchanges.count();
    registerSale(outcome);
    outcome.result.clear();
    // Once it was asked in vain the plug-in is offline, and asks no more.
    const bool isAsked = m_exchanges.count() > exchanges || begun->isBookingUnknown();
    const bool isUnknown = isAsked && !outcome.refusal && !isRegistered();
    if (isUnknown)
        outcome.notices.append(registrationUnknown());
    begun->setRegistrationBegun(isUnknown);
    begun->setBookingUnknown(isUnknown);
    keep();
    return !isUnknown && !outcome.refusal;
}

// Of a till that is stopped in between, or gets no answer, nobody knows whether it is booked still.
void Till::noteThatRollbackBegins()
{
    if (!isRegistered() || document()->isBookingUnknown())
        return;
    document()->setBookingUnknown(true);
    keep();
}

Outcome Till::cancel()
{
    const auto cancelled = openDocument();
    Outcome outcome;
    if (!settleBegunRegistration(outcome))
        return outcome;
    noteThatRollbackBegins();
    request(outcome, u"rollback"_s, [&] { return m_system->rollback(cancelled); });
    if (!outcome.result.toBool()) {
        keep();
        return outcome;
    }
    notify(outcome, Event(EActivityListener::ChequeCancelled));
    cancelled->setState(EDocumentState::Cancelled);
    m_store.discard();
    leave(outcome);
    return outcome;
}

} // namespace till

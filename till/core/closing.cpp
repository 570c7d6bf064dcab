// Documents end: they are closed or cancelled.

#include "host/documents/money.h"
#include "host/framework/basicexception.h"
#include "host/framework/currenttime.h"
#include "host/printing/receipt.h"
#include "host/printing/textprinter.h"
#include "till/core/cannotdo.h"
#include "till/core/pluginguard.h"
#include "till/core/till.h"

using namespace Qt::StringLiterals;

namespace till {

Outcome Till::close()
{
    if (openDocument()->getGoods().isEmpty())
        throw CannotDo(u"the document has no positions"_s, u"add one or cancel the document"_s);
    requireRightlyPaid();
    Outcome outcome;
    const bool confirmed = confirmClosing(outcome);
    keep();
    if (!confirmed)
        return outcome;
    if (money::counts(rest()))
        pay(PaymentKind::Cash, std::nullopt);
    putOut(outcome);
    deliverAfterClose(outcome);
    return outcome;
}

bool Till::confirmClosing(Outcome &outcome)
{
    const auto open = document();
    if (open->getType() == EDocumentType::Sale) {
        registerSale(outcome);
        return !outcome.refusal;
    }
    request(outcome, u"commit"_s, [&] { return m_system.commit(open); });
    return outcome.result.toBool();
}

void Till::registerSale(Outcome &outcome)
{
    // The records of a registered cheque are its answer when it is asked again.
    if (!isRegistered())
        m_system.clearBonusRecords();
    // Its false is an answer: the cheque earns nothing.
    announce(outcome, [&] {
        guarded(
            outcome, u"hasPointsForEarn"_s, [&] { outcome.result = m_system.hasPointsForEarn(); });
    });
}

void Till::putOut(Outcome &outcome)
{
    const auto closed = document();
    closed->setState(EDocumentState::Closed);
    closed->setClosed(MockFactory<CurrentTime>::create()->currentDateTime());
    guarded(outcome, u"beforePutoutCheck"_s, [this] { m_system.beforePutoutCheck(); });
    printReceipt(outcome);
    notify(outcome, Event(EActivityListener::ChequeClosed));
    guarded(outcome, u"afterPutoutCheck"_s, [this] { m_system.afterPutoutCheck(); });
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

Outcome Till::cancel()
{
    const auto cancelled = openDocument();
    Outcome outcome;
    request(outcome, u"rollback"_s, [&] { return m_system.rollback(cancelled); });
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

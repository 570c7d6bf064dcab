#include "till/window/desk.h"

#include "host/documents/money.h"
#include "host/framework/currenttime.h"
#include "host/queue/dbqueuebroker.h"
#include "host/storage/storageerror.h"
#include "till/core/cannotdo.h"
#include "till/language/localetext.h"
#include "till/window/forms.h"
#include "till/window/texts.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace till {

namespace {

QDateTime now()
{
    return MockFactory<CurrentTime>::create()->currentDateTime();
}

bool asksLoyaltySystem(const RecordedEvent &event)
{
    return event.code == EActivityListener::LoyaltyRequestStarted;
}

} // namespace

Desk::Desk(Till &till, const Exchanges &exchanges, Recorder &recorder, Cashier &cashier)
    : m_till(till)
    , m_exchanges(exchanges)
    , m_recorder(recorder)
    , m_cashier(cashier)
    , m_cheque(chequeView(nullptr, {}))
{ }

void Desk::start()
{
    carryOut([this] {
        Outcome outcome;
        outcome.notices = m_till.start();
        return outcome;
    });
    takeLoyaltyMessages(m_till.document().get());
}

bool Desk::enter(const QString &data)
{
    const QString scanned = data.trimmed();
    return !scanned.isEmpty() && carryOut([&] { return m_till.scan(scanned); });
}

bool Desk::perform(Function function, const QString &typed, std::optional<int> posnum)
{
    switch (function) {
    case Function::Quantity:
        return changeQuantity(typed, posnum);
    case Function::Card:
        return presentCard(typed);
    case Function::Coupon:
        return addCoupon(typed);
    case Function::Points:
        return payWithPoints(typed);
    case Function::Return:
        return takeBack(typed);
    case Function::MessagesRead:
        return dropMessages();
    default:
        return performOnEmptyLine(function, typed, posnum);
    }
}

// A code that was typed and not entered would be missing on the cheque that is closed over it.
bool Desk::performOnEmptyLine(Function function, const QString &typed, std::optional<int> posnum)
{
    if (!typed.isEmpty()) {
        tell(texts::lineNotEmpty.arg(typed).ui());
        return false;
    }
    switch (function) {
    case Function::Sale:
        return carryOut([this] { return m_till.openSale(); });
    case Function::Remove:
        return removePosition(posnum);
    case Function::Total:
        return carryOut([this] { return m_till.calculate(); });
    case Function::Close:
        return close();
    case Function::Cancel:
        return cancel();
    case Function::EndShift:
        return endShift();
    default:
        Q_UNREACHABLE();
    }
}

bool Desk::changeQuantity(const QString &typed, std::optional<int> posnum)
{
    if (!posnum) {
        tell(texts::noPositionChosen.ui());
        return false;
    }
    const auto text = textFor(typed, forms::quantity());
    return text && carryOut([&] { return m_till.changeQuantity(*posnum, forms::number(*text)); });
}

bool Desk::removePosition(std::optional<int> posnum)
{
    if (!posnum) {
        tell(texts::noPositionChosen.ui());
        return false;
    }
    return carryOut([&] { return m_till.removePosition(*posnum); });
}

bool Desk::presentCard(const QString &typed)
{
    const auto number = textFor(typed, forms::card());
    return number && carryOut([&] { return m_till.presentCard(*number, ECardNumberType::Keyed); });
}

bool Desk::addCoupon(const QString &typed)
{
    const auto number = textFor(typed, forms::coupon());
    return number && carryOut([&] { return m_till.addCoupon(*number, {}); });
}

bool Desk::payWithPoints(const QString &typed)
{
    const auto text = textFor(typed, forms::points());
    if (!text)
        return false;
    const auto amount = text->isEmpty() ? std::nullopt : std::optional(forms::number(*text));
    return carryOut([&] { return m_till.payWithPoints(amount); });
}

bool Desk::takeBack(const QString &typed)
{
    const auto number = textFor(typed, forms::soldCheque());
    return number && carryOut([&] {
        return number->isEmpty() ? m_till.openReturn() : m_till.openReturnOf(*number);
    });
}

bool Desk::close()
{
    double change = 0.0;
    if (m_paymentForm && !takeMoney(change))
        return false;
    if (!carryOut([this] { return m_till.close(); }))
        return false;
    if (money::counts(change))
        tell(texts::change.arg(amountForEyes(change)).ui());
    return true;
}

// The till pays by itself, in cash, what nothing was paid of. What was paid in part stays so until
// the cheque changes.
bool Desk::takeMoney(double &change)
{
    while (m_till.document() && m_till.document()->getType() == EDocumentType::Sale
        && money::counts(m_till.rest())) {
        const double rest = m_till.rest();
        const auto tender = m_paymentForm(rest);
        if (!tender)
            return false;
        const bool isRestInCash = tender->kind == PaymentKind::Cash && !tender->amount;
        if (isRestInCash && m_till.document()->getPayments().isEmpty())
            return true;
        if (!carryOut([&] { return m_till.pay(tender->kind, tender->amount); }))
            return false;
        change = std::max(tender->amount.value_or(rest) - rest, 0.0);
    }
    return true;
}

bool Desk::cancel()
{
    return isSure(texts::askCancel) && carryOut([this] { return m_till.cancel(); });
}

bool Desk::endShift()
{
    return isSure(texts::askEndShift) && carryOut([this] { return m_till.closeShift(); });
}

bool Desk::dropMessages()
{
    m_messages.clear();
    return true;
}

QString Desk::serviceState() const
{
    return m_till.isLoyaltyOff() ? loyaltyIsOff().ui() : m_connection.text();
}

std::optional<QString> Desk::textFor(const QString &typed, const InputTextFormParameters &form)
{
    if (typed.isEmpty())
        return m_cashier.enter(form);
    if (accepts(form, typed))
        return typed;
    tell(form.scanError.ui());
    return std::nullopt;
}

bool Desk::isSure(const tr::Tr &question)
{
    return m_cashier.choose(question, texts::yes, texts::no);
}

bool Desk::carryOut(const std::function<Outcome()> &operation)
{
    bool isDone = false;
    m_isBusy = true;
    try {
        const Outcome outcome = operation();
        take(outcome);
        isDone = !outcome.refusal;
    } catch (const CannotDo &error) {
        tell(error.text());
    } catch (const StorageError &error) {
        tell(error.tr().ui());
    }
    m_isBusy = false;
    m_connection.observe(m_exchanges.count(), m_exchanges.lastSucceeded(), now());
    m_cheque = chequeView(m_till.document().get(), m_refusedCard);
    m_preview = m_till.receiptPreview();
    return isDone;
}

// The same message twice on the screen tells nothing more.
void Desk::tell(const QString &message)
{
    if (!message.isEmpty() && !m_messages.contains(message))
        m_messages.append(message);
}

void Desk::take(const Outcome &outcome)
{
    const Recording recording = m_recorder.take();
    takePaper(outcome, recording.screen);
    noteCard(outcome);
    if (std::any_of(recording.events.cbegin(), recording.events.cend(), asksLoyaltySystem))
        takeLoyaltyMessages((outcome.left ? outcome.left : m_till.document()).get());
    if (outcome.refusal)
        tell(outcome.refusal->message.ui());
    else if (outcome.result.typeId() == QMetaType::Int)
        tell(texts::stopped.ui());
    for (const tr::Tr &notice : outcome.notices)
        tell(notice.ui());
}

void Desk::takePaper(const Outcome &outcome, const QStringList &sheets)
{
    if (outcome.left || !sheets.isEmpty())
        m_printed = sheets.join(QString());
}

// A refused card leaves nothing on the cheque that would tell of it.
void Desk::noteCard(const Outcome &outcome)
{
    if (!outcome.presentedCard.isEmpty())
        m_refusedCard = outcome.refusal
            ? texts::cardRefused.arg(outcome.presentedCard).arg(outcome.refusal->message.ui()).ui()
            : QString();
    else if (outcome.left)
        m_refusedCard.clear();
}

void Desk::takeLoyaltyMessages(const AbstractDocument *document)
{
    if (!document)
        return;
    for (const QString &message : document->getEffects().messagesToCashier)
        tell(message);
    for (const QString &message : document->getEffects().messagesToClient)
        if (!message.isEmpty())
            tell(texts::toCustomer.arg(message).ui());
}

bool Desk::isQueueShared()
{
    return Singleton<DBQueueBroker>::instance()->isShared();
}

void Desk::takeQueueState(const QueueOffice::Status &status)
{
    m_queueState = queueText(status, now());
}

void Desk::takeQueueFailure(const QString &reason)
{
    m_queueState = texts::queueUnusable.arg(reason).ui();
}

QString Desk::queueState()
{
    if (m_isBusy || isQueueShared())
        return m_queueState;
    try {
        const auto status = Singleton<DBQueueBroker>::instance()->inOffice(
            [](QueueOffice &office) { return office.status(); });
        m_queueState = queueText(status, now());
    } catch (const StorageError &error) {
        m_queueState = texts::queueUnusable.arg(error.tr()).ui();
    }
    return m_queueState;
}

} // namespace till

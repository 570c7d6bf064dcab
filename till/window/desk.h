#pragma once

#include "till/core/till.h"
#include "till/transcript/cashier.h"
#include "till/transcript/recorder.h"
#include "till/window/chequeview.h"
#include "till/window/function.h"
#include "till/window/paymentdialog.h"
#include "till/window/servicestate.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>
#include <utility>

namespace till {

/// What the window shows, and what the cashier does in it: the till without a widget.
///
/// Turns keys and typed words into the till's operations, and what comes of them into texts. Knows
/// no rule of a sale. On the host's thread; one operation at a time.
class Desk
{
public:
    /// None of these is owned; all must outlive this. The cashier is asked for what was not typed.
    Desk(Till &till, const Exchanges &exchanges, Recorder &recorder, Cashier &cashier);
    Q_DISABLE_COPY_MOVE(Desk)

    /// Asks how the sum is paid; nothing when the cashier thought better of it.
    using PaymentForm = std::function<std::optional<Tender>(double rest)>;
    /// Without a form everything is paid in cash.
    void setPaymentForm(PaymentForm form) { m_paymentForm = std::move(form); }

    /// Starts the till: shows the document that was left open.
    void start();
    /// Something was scanned, or typed and entered; a card, a coupon or an article. Blank data does
    /// nothing.
    /// @return whether the till took it; what it did not take is told in the messages.
    bool enter(const QString &data);
    /// @param typed  what stands in the input line; asked for where it is needed and empty.
    /// @param posnum of the chosen position; nothing when none is chosen.
    /// @return whether it was carried out; why not is told in the messages, unless the cashier
    ///         thought better of it.
    bool perform(Function function, const QString &typed, std::optional<int> posnum);

    /// Adds something to what the cashier is to read.
    void tell(const QString &message);

    [[nodiscard]] const ChequeView &cheque() const { return m_cheque; }
    /// What the cashier has not read yet, oldest first.
    [[nodiscard]] const QStringList &messages() const { return m_messages; }
    /// What the printer would get for the open document as it is now; at an empty desk what it got
    /// for the last one, which is nothing where that was cancelled.
    [[nodiscard]] QString paper() const { return isPreview() ? m_preview : m_printed; }
    /// Whether the paper is still to be printed.
    [[nodiscard]] bool isPreview() const { return !m_preview.isEmpty(); }
    [[nodiscard]] const Connection &connection() const { return m_connection; }
    /// Whether the loyalty service can be reached, or that it is not to be asked at all.
    [[nodiscard]] QString serviceState() const;
    /// What the till asked the loyalty service, and what came back.
    [[nodiscard]] const ExchangeLog &exchanges() const { return m_exchanges.log(); }
    /// Whether a look at the outgoing queue may have to wait for a server.
    [[nodiscard]] static bool isQueueShared();
    /// What waits in the outgoing queue, looked up now; why it cannot be told where that is so.
    /// During an operation the queue is the till's, and this is as it was before; so is it of a
    /// shared queue until `takeQueueState`.
    [[nodiscard]] QString queueState();
    /// Somebody else has looked at the queue.
    void takeQueueState(const QueueOffice::Status &status);
    /// Somebody else could not.
    void takeQueueFailure(const QString &reason);

private:
    bool carryOut(const std::function<Outcome()> &operation);
    /// What was typed, otherwise what the cashier enters; nothing when that fits the form not.
    [[nodiscard]] std::optional<QString> textFor(
        const QString &typed, const InputTextFormParameters &form);
    [[nodiscard]] bool isSure(const tr::Tr &question);

    bool changeQuantity(const QString &typed, std::optional<int> posnum);
    bool removePosition(std::optional<int> posnum);
    bool presentCard(const QString &typed);
    bool addCoupon(const QString &typed);
    bool payWithPoints(const QString &typed);
    bool takeBack(const QString &typed);
    bool close();
    [[nodiscard]] bool takeMoney(double &change);
    bool cancel();
    bool endShift();
    bool dropMessages();
    bool performOnEmptyLine(Function function, const QString &typed, std::optional<int> posnum);

    void take(const Outcome &outcome);
    void takePaper(const Outcome &outcome, const QStringList &sheets);
    void noteCard(const Outcome &outcome);
    void takeLoyaltyMessages(const AbstractDocument *document);

    Till &m_till;
    const Exchanges &m_exchanges;
    Recorder &m_recorder;
    Cashier &m_cashier;
    PaymentForm m_paymentForm;
    ChequeView m_cheque;
    QStringList m_messages;
    QString m_preview; ///< empty: no document is open
    QString m_printed;
    QString m_refusedCard; ///< the last card that was presented and refused, with the reason
    Connection m_connection;
    QString m_queueState;
    bool m_isBusy = false; ///< an operation runs, maybe below one of its dialogs
};

} // namespace till

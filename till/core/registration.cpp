#include "till/core/registration.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace till {

namespace {

bool isReturn(const AbstractDocument &document)
{
    return document.getOperationKind() == EOperationKind::GoodsComeBack;
}

// A return gets no id. One that was committed at once has no message; one that could not be
// committed was never closed.
bool mayBeUnconfirmed(const AbstractDocument &document, const QList<QueueMessage> &messages)
{
    const auto card = document.getCardRecord(ECardMode::OnlineLoyalty);
    if (!card)
        return false;
    return isReturn(document) ? !messages.isEmpty() : card->getOperationId().isEmpty();
}

bool isDelivered(const QueueMessage &message)
{
    return message.state == MessageState::Delivered;
}

tr::Tr stateText(const QueueMessage &message)
{
    if (!message.movedTo.isEmpty())
        return tr::Tr(u"tillMessageMoved"_s, u"перенесено в файл %1"_s).arg(message.movedTo);
    switch (message.state) {
    case MessageState::Pending:
        return {u"tillMessagePending"_s, u"ждёт отправки"_s};
    case MessageState::Sending:
        return {u"tillMessageSending"_s, u"отправляется"_s};
    case MessageState::Delivered:
        return {u"tillMessageDelivered"_s, u"доставлено"_s};
    case MessageState::Refused:
        return {u"tillMessageRefused"_s, u"отклонено"_s};
    case MessageState::Parked:
        break;
    }
    return {u"tillMessageParked"_s, u"отложено до решения администратора"_s};
}

tr::Tr stateText(const std::optional<QueueMessage> &message)
{
    return message ? stateText(*message) : tr::Tr(u"tillMessageMissing"_s, u"нет в очереди"_s);
}

tr::Tr errorText(const std::optional<QueueMessage> &message)
{
    const QString error = message ? message->lastError.simplified() : QString();
    return error.isEmpty() ? tr::Tr(u"tillMessageWithoutError"_s, u"нет"_s)
                           : tr::Tr(tr::undefined, error);
}

} // namespace

QList<Unconfirmed> unconfirmedOf(
    const QList<QSharedPointer<AbstractDocument>> &closed, const MessagesOfDocument &messagesOf)
{
    QList<Unconfirmed> unconfirmed;
    for (const auto &document : closed) {
        const QList<QueueMessage> messages = messagesOf(document->getCorrelationId());
        if (!mayBeUnconfirmed(*document, messages)
            || std::any_of(messages.cbegin(), messages.cend(), isDelivered))
            continue;
        unconfirmed.append(
            {document, messages.isEmpty() ? std::nullopt : std::optional(messages.constLast())});
    }
    return unconfirmed;
}

tr::Tr describe(const Unconfirmed &unconfirmed)
{
    const AbstractDocument &document = *unconfirmed.document;
    const auto &message = unconfirmed.message;
    const tr::Tr line = isReturn(document)
        ? tr::Tr(u"tillShiftUnconfirmedReturn"_s,
            u"Не подтверждён возврат %1 от %2: сумма %3, баллы: начислено %4, списано %5, "
            u"сообщение: %6, ошибка: %7"_s)
        : tr::Tr(u"tillShiftUnconfirmedSale"_s,
            u"Не подтверждена продажа %1 от %2: сумма %3, баллы: начислено %4, списано %5, "
            u"сообщение: %6, ошибка: %7"_s);
    return line.arg(document.getNumber())
        .argMoment(document.getClosed())
        .argAmount(document.getSumAfterDiscounts())
        .argAmount(document.getEffects().pointsEarned)
        .argAmount(document.getPointsPaid())
        .arg(stateText(message))
        .arg(errorText(message));
}

} // namespace till

#include "till/explain/messageconclusion.h"

#include "till/explain/amounts.h"
#include "till/explain/facts.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace till::explain {

namespace {

constexpr int unauthorised = 401;

// One that was delivered decides: whatever else there is of the document counts once.
const QueueMessage &decisive(const QList<QueueMessage> &messages)
{
    const auto delivered = std::find_if(messages.cbegin(), messages.cend(),
        [](const QueueMessage &message) { return message.state == MessageState::Delivered; });
    return delivered == messages.cend() ? messages.constLast() : *delivered;
}

Amounts waitingAmounts(const Evidence &evidence)
{
    return evidence.document ? amountsOf(*evidence.document) : Amounts();
}

bool mayBeBooked(const Evidence &evidence)
{
    const auto operation
        = facts::isReturn(evidence) ? ServiceOperation::Return : ServiceOperation::Register;
    const auto exchange = facts::lastExchange(evidence, operation);
    return exchange && exchange->ending == facts::Ending::Unanswered;
}

tr::Tr whyWaiting(const Evidence &evidence, const QueueMessage &message)
{
    tr::Tr why = mayBeBooked(evidence)
        ? tr::Tr(u"explainWhyWaitingUnanswered"_s,
            u"На запрос провести документ ответа не было, и он ждёт в очереди отправки. Если "
            u"система "
            u"лояльности его уже провела, она узнает повтор и второй раз не посчитает"_s)
        : tr::Tr(u"explainWhyWaiting"_s,
            u"Документ закрыт без связи с системой лояльности и ждёт в очереди отправки"_s);
    if (message.lastError.isEmpty())
        return why;
    return tr::Tr(u"explainWhyWaitingError"_s, u"%1; попыток отправить: %2, последняя ошибка: %3"_s)
        .arg(why)
        .arg(QString::number(message.attempts))
        .arg(message.lastError.simplified());
}

tr::Tr nextOfWaiting(const QueueMessage &message)
{
    if (message.lastCode == unauthorised)
        return {u"explainNextReauthorise"_s,
            u"Исправьте имя и пароль в настройках и выполните korvel-till queue reauthorise"_s};
    return {u"explainNextDeliver"_s,
        u"Сообщение уйдёт само; чтобы отправить его сейчас: korvel-till queue deliver"_s};
}

Conclusion waiting(const Evidence &evidence, const QueueMessage &message)
{
    return {Whereabouts::Waiting, whyWaiting(evidence, message), nextOfWaiting(message),
        waitingAmounts(evidence)};
}

Conclusion moved(const Evidence &evidence, const QueueMessage &message)
{
    return {Whereabouts::Waiting,
        tr::Tr(u"explainWhyMoved"_s,
            u"Сообщение перенесено в файл %1, его отправляет машина, которая этот файл приняла"_s)
            .arg(message.movedTo),
        {u"explainNextMoved"_s,
            u"Посмотрите korvel-till queue list там, где файл принят; если нигде, примените к нему "
            u"здесь korvel-till queue import"_s},
        waitingAmounts(evidence)};
}

Conclusion delivered(const Evidence &evidence, const QueueMessage &message)
{
    Amounts amounts = amountsOf(
        facts::isReturn(evidence) ? ServiceOperation::Return : ServiceOperation::Register,
        answerFacts(message.answer));
    amounts.sum = waitingAmounts(evidence).sum;
    return {Whereabouts::Booked,
        {u"explainWhyDelivered"_s,
            u"Документ закрыт без связи, ждал в очереди и доставлен: система лояльности провела "
            u"его"_s},
        {u"explainNextNothing"_s, u"Ничего делать не нужно"_s}, amounts};
}

Conclusion refused(const Evidence &evidence, const QueueMessage &message)
{
    return {Whereabouts::Refused,
        tr::Tr(u"explainWhyRefused"_s,
            u"Документ закрыт без связи, а система лояльности потом отказалась его провести (%1): "
            u"повтор ничего не изменит"_s)
            .arg(message.lastError.simplified()),
        tr::Tr(u"explainNextRefused"_s,
            u"Прочитайте ответ: korvel-till queue show %1. Когда причину устранят в системе "
            u"лояльности: korvel-till queue retry %1"_s)
            .arg(message.id),
        waitingAmounts(evidence)};
}

Conclusion parked(const Evidence &evidence, const QueueMessage &message)
{
    return {Whereabouts::Parked,
        tr::Tr(u"explainWhyParked"_s,
            u"Сообщение отложено и не отправляется, пока человек не решит; последняя ошибка: %1"_s)
            .arg(message.lastError.isEmpty()
                    ? tr::Tr(u"explainNoError"_s, u"нет"_s)
                    : tr::Tr(tr::undefined, message.lastError.simplified())),
        tr::Tr(u"explainNextParked"_s,
            u"Прочитайте сообщение: korvel-till queue show %1. Отправить снова: korvel-till queue "
            u"retry %1"_s)
            .arg(message.id),
        waitingAmounts(evidence)};
}

} // namespace

Conclusion concludeByMessage(const Evidence &evidence)
{
    const QueueMessage &message = decisive(evidence.messages);
    if (!message.movedTo.isEmpty() && message.state != MessageState::Delivered)
        return moved(evidence, message);
    switch (message.state) {
    case MessageState::Pending:
    case MessageState::Sending:
        return waiting(evidence, message);
    case MessageState::Delivered:
        return delivered(evidence, message);
    case MessageState::Refused:
        return refused(evidence, message);
    case MessageState::Parked:
        break;
    }
    return parked(evidence, message);
}

} // namespace till::explain

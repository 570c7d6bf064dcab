#include "till/queue/messageobject.h"

namespace till {

namespace {

Json timeOf(const QDateTime &time)
{
    return dateTimeToJson(time.toUTC());
}

bool isToBeSent(const QueueMessage &message)
{
    return message.state == MessageState::Pending || message.state == MessageState::Sending;
}

Json headersOf(const QueueMessage &message)
{
    Json headers = Json::object();
    QStringList names = message.headers.keys();
    names.sort();
    for (const QString &name : names)
        headers[toJson(name)] = toJson(message.headers[name]);
    return headers;
}

} // namespace

Json listedMessage(const QueueMessage &message)
{
    return {{"id", toJson(message.id)}, {"queue", toJson(message.queue)},
        {"state", toJson(stateName(message.state))}, {"attempts", message.attempts},
        {"enqueued", timeOf(message.enqueued)},
        {"nextAttempt", isToBeSent(message) ? timeOf(message.nextAttempt) : Json(nullptr)},
        {"lastError", toJson(message.lastError)}, {"code", message.lastCode}};
}

Json wholeMessage(const QueueMessage &message)
{
    Json object = listedMessage(message);
    object.update({{"number", message.number}, {"remark", toJson(message.remark)},
        {"lane", toJson(message.lane)}, {"correlationId", toJson(message.correlationId)},
        {"lastAttempt", timeOf(message.lastAttempt)}, {"deliverer", toJson(message.leaseOwner)},
        {"deliverersLost", message.deliverersLost},
        {"answeredOtherwiseSince", timeOf(message.answeredOtherwiseSince)},
        {"settled", timeOf(message.settled)}, {"movedTo", toJson(message.movedTo)},
        {"url", toJson(message.url)}, {"headers", headersOf(message)},
        {"body", toJson(QString::fromUtf8(message.body))},
        {"answer", toJson(QString::fromUtf8(message.answer))}});
    return object;
}

} // namespace till

#pragma once

#include "host/documents/abstractdocument.h"
#include "host/framework/tr.h"
#include "host/queue/queueoffice.h"

#include <QList>
#include <QSharedPointer>

#include <functional>
#include <optional>

namespace till {

/// A closed document whose registration the service has not confirmed.
struct Unconfirmed
{
    QSharedPointer<AbstractDocument> document;
    /// Its message in the queue, the latest one; nothing when there is none.
    std::optional<QueueMessage> message;
};

/// The messages that were queued for the document of that correlation id, in order.
using MessagesOfDocument = std::function<QList<QueueMessage>(const QString &correlationId)>;

/// Those of the documents whose registration the service has not confirmed: sales with a loyalty
/// card that have got no operation id, and returns with one, unless a message of theirs was
/// delivered. A return that was committed at once has no message, so one without a message counts
/// as confirmed.
[[nodiscard]] QList<Unconfirmed> unconfirmedOf(
    const QList<QSharedPointer<AbstractDocument>> &closed, const MessagesOfDocument &messagesOf);

/// The document in one line: kind, number, time, sum, points, state of its message, last error.
[[nodiscard]] tr::Tr describe(const Unconfirmed &unconfirmed);

} // namespace till

#pragma once

#include "host/export.h"

#include <QByteArray>
#include <QDateTime>
#include <QHash>
#include <QString>

/// What becomes of a message of the outgoing queue.
enum class MessageState : int
{
    Pending, ///< waits for its next attempt
    Sending, ///< in a deliverer's hands
    Delivered,
    Refused, ///< for good; kept with the answer
    Parked, ///< a person must look
};

/// "pending", "sending", "delivered", "refused" or "parked".
[[nodiscard]] POSHOST_EXPORT QString stateName(MessageState state);
/// The state of that name; `Parked` for an unknown name, which a person must look at.
[[nodiscard]] POSHOST_EXPORT MessageState stateNamed(const QString &name);

/// A message of the outgoing queue. A record of values.
struct QueueMessage
{
    qint64 number = 0; ///< ascending in the order of enqueueing
    QString id; ///< made once when the message was enqueued
    QString queue;
    QString remark;
    QString url;
    QHash<QString, QString> headers; ///< holds credentials: never for a log
    QByteArray body;
    QString correlationId; ///< of the document that was the current one
    QDateTime enqueued;
    int attempts = 0; ///< counted before the request goes out
    QDateTime nextAttempt; ///< from when on it may be sent
    QString lastError;
    MessageState state = MessageState::Pending;
    QByteArray answer; ///< the beginning of the last answer; empty when there was none
};

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
/// Whether there is a state of that name.
[[nodiscard]] POSHOST_EXPORT bool isStateName(const QString &name);

/// A message of the outgoing queue. A record of values; times that never came are invalid.
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
    QString lane; ///< whose message it is; those of one lane go out one at a time
    QDateTime enqueued;

    MessageState state = MessageState::Pending;
    int attempts = 0; ///< counted before the request goes out
    QDateTime lastAttempt;
    QDateTime nextAttempt; ///< from when on it may be sent
    QString leaseOwner; ///< who has it in hand while it is being sent; empty otherwise
    QDateTime leaseUntil; ///< when it falls back to the queue by itself
    int deliverersLost = 0; ///< how many deliverers died with it in their hands

    int lastCode = 0; ///< the service's own code, otherwise as `RestClient::errorCode`; 0: none
    QString lastError;
    QByteArray answer; ///< the beginning of the last answer; empty when there was none
    QDateTime answeredOtherwiseSince; ///< since when the service neither accepts nor refuses it
    QDateTime settled; ///< when it was delivered or refused
    QString movedTo; ///< the file that it was exported to; empty while it belongs here
};

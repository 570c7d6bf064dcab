#pragma once

#include "host/queue/queuemessage.h"

/// A message for the spill file, with everything in it that a file of text could spoil.
inline QueueMessage makeMessage(const QString &id)
{
    QueueMessage message;
    message.id = id;
    message.queue = QStringLiteral("loyalty");
    message.headers = {{QStringLiteral("Authorization"), QStringLiteral("Basic c2VjcmV0")}};
    message.body = QByteArray("Ёж\0\xff\n\"", 9);
    message.enqueued = QDateTime(QDate(2024, 11, 21), QTime(12, 30, 1, 5), Qt::UTC);
    message.attempts = 3;
    return message;
}

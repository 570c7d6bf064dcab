#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

namespace kills {

/// A message as the queue's file has it.
struct Message
{
    QString id;
    QString correlationId;
    QString state;
    int attempts = 0;
    int lastCode = 0;
    QString lastError;
    QByteArray body;

    [[nodiscard]] bool isDelivered() const { return state == u"delivered"; }
};

/// All messages that a till ever queued, in their order; none when it has no queue. Changes
/// nothing, not even the database's log, and may be called while somebody works with the queue.
/// @throws std::runtime_error when the queue cannot be read.
std::vector<Message> queueBook(const QString &stateFolder);

} // namespace kills

#pragma once

#include "host/queue/queuedatabase.h"
#include "host/queue/queuemessage.h"

#include <QList>

#include <memory>
#include <optional>

/// The messages of the outgoing queue in their table: all of the queue's SQL, no exchange.
///
/// Every operation is on disk, synced, when it returns; what fails is a `StorageError` and has
/// changed nothing.
class MessageStore
{
public:
    explicit MessageStore(const QString &fileName);

    /// Where the messages are.
    [[nodiscard]] QString fileName() const { return m_fileName; }

    /// Adds a message behind the others; its number is given here.
    void append(const QueueMessage &message);
    /// How many messages are pending or being sent.
    [[nodiscard]] int waiting();
    /// Everything but delivered messages, in order, without headers and bodies.
    [[nodiscard]] QList<QueueMessage> undelivered();

    /// Takes the first waiting message behind that number into a deliverer's hands and counts the
    /// attempt. One that a killed deliverer left in its hands counts as waiting, so only one
    /// deliverer may be at work. Nothing when none waits.
    [[nodiscard]] std::optional<QueueMessage> checkOut(qint64 behind);
    /// Notes what became of a message that was checked out.
    void settle(const QueueMessage &message);

private:
    QString m_fileName;
    std::unique_ptr<QueueDatabase> m_database;
};

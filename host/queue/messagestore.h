#pragma once

#include "host/queue/queueerror.h"
#include "host/queue/queuefile.h"
#include "host/queue/queuemessage.h"

#include <QList>

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
    /// What a person must hear of what the opening found.
    [[nodiscard]] QList<tr::Tr> notices() const { return m_file.notices(); }

    /// Adds a message behind the others; its number is given here.
    void append(const QueueMessage &message);
    /// Adds messages behind the others in one step, but for those whose ids are there already.
    /// @return how many were added.
    int takeIn(const QList<QueueMessage> &messages);
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
    [[nodiscard]] QueueDatabase &database() { return m_file.database(); }

    QString m_fileName;
    QueueFile m_file;
};

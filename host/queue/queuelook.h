#pragma once

#include "host/export.h"
#include "host/queue/queueoffice.h"
#include "host/queue/queuesite.h"

#include <QString>

#include <memory>

class MessageStore;

/// A look at the outgoing queue beside whoever works it, without a trace: nothing is made, mended,
/// moved, locked or enqueued, whatever is wrong with it.
///
/// Opened by the constructor, closed with this object; belongs to the thread of the first.
class POSHOST_EXPORT QueueLook
{
public:
    /// A queue that is not there yet has no messages. A shared queue that cannot be reached has
    /// those that wait for it on this machine.
    /// @throws StorageError when the queue is there and cannot be opened.
    explicit QueueLook(const QueueSite &site);
    ~QueueLook();
    Q_DISABLE_COPY_MOVE(QueueLook)

    /// Whether there is anything to look at.
    [[nodiscard]] bool isThere() const { return m_store != nullptr; }
    /// Why a shared queue cannot be reached; empty otherwise.
    [[nodiscard]] tr::Tr unreached() const { return m_unreached; }
    /// Figures of the queue; none at all where there is no queue.
    /// @throws StorageError when it cannot be read.
    [[nodiscard]] QueueOffice::Status status();
    /// As of `QueueOffice`.
    /// @throws StorageError when it cannot be read.
    [[nodiscard]] QList<QueueMessage> ofDocument(const QString &correlationId);
    /// The messages that were enqueued last, whole, oldest first. Those of a shared queue are of
    /// all its tills.
    /// @param count at most so many.
    /// @throws StorageError when it cannot be read.
    [[nodiscard]] QList<QueueMessage> newest(int count);

private:
    void openShared(const QString &address);
    [[nodiscard]] QueueOffice office();

    tr::Tr m_unreached;
    QList<QueueMessage> m_spilled;
    std::unique_ptr<MessageStore> m_store; ///< null: there is no queue
    std::unique_ptr<MessageStore> m_local; ///< of this machine, beside a shared one
};

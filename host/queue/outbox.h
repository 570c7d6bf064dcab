#pragma once

#include "host/framework/tr.h"
#include "host/queue/messagestore.h"
#include "host/queue/queueerror.h"

#include <QList>

/// Sees to it that every message is kept, wherever the queue is.
///
/// Belongs to the thread that made it.
class POSHOST_EXPORT Outbox
{
public:
    Outbox() = default;
    virtual ~Outbox();
    Q_DISABLE_COPY_MOVE(Outbox)

    /// Keeps a message; it is on disk, synced, when this returns.
    /// @throws StorageError when nothing could take it; nothing was then written.
    virtual void put(const QueueMessage &message) = 0;
    /// The queue, opened where it is not open yet, with what had been kept beside it meanwhile
    /// where it can take that.
    /// @throws StorageError when it cannot be opened.
    [[nodiscard]] virtual MessageStore &store() = 0;
    /// Where messages can be looked at now, the queue first, then what still waits on this machine
    /// to get there. Of a queue that cannot be reached only the latter.
    /// @throws StorageError when nothing can be opened.
    [[nodiscard]] virtual QList<MessageStore *> toLookAt() = 0;
    /// Where this machine's own files of the queue are.
    [[nodiscard]] virtual QString folder() const = 0;
    /// Whether other machines may change the queue.
    [[nodiscard]] virtual bool isShared() const { return false; }
    /// What this machine keeps beside the queue's file, since that could not take it yet, in order:
    /// what `store` and `toLookAt` have left there.
    /// @throws StorageError when the file cannot be read.
    [[nodiscard]] virtual QList<QueueMessage> spilled() = 0;
    /// Why the queue could not be reached the last time; empty: it could, or needs no reaching.
    [[nodiscard]] virtual tr::Tr unreached() const { return {}; }
    /// Closes what cannot be used any more; the next operation opens it again, and sets a damaged
    /// file aside.
    virtual void close(const QueueUnusable &error) = 0;

    /// Does something with the queue.
    /// @throws StorageError as it does. After `QueueUnusable` the queue is closed, and so mended or
    ///         reached anew when it is opened again.
    template <typename Work> auto with(const Work &work)
    {
        try {
            return work(store());
        } catch (const QueueUnusable &error) {
            close(error);
            throw;
        }
    }
};

#pragma once

#include "host/queue/messagestore.h"
#include "host/queue/spillfile.h"

#include <QList>

#include <memory>

/// Sees to it that every message is kept: in the queue's file, and where that cannot take it, in
/// the spill file beside it until it can. So that a full disk still takes some, it keeps a ballast
/// file whose room it gives up then.
///
/// Belongs to the thread that made it.
class Outbox
{
public:
    /// Opens nothing yet.
    /// @param ballastBytes size of the ballast file; 0: none.
    Outbox(const QString &fileName, qint64 ballastBytes);

    /// Keeps a message; it is on disk, synced, when this returns.
    /// @throws StorageError when neither file could take it; nothing was then written.
    void put(const QueueMessage &message);

    /// The queue, opened where it is not open yet, with what had been spilled where it can take it.
    /// @throws StorageError when it cannot be opened.
    MessageStore &store();
    /// Does something with the queue.
    /// @throws StorageError as it does. After `QueueDamaged` the queue is closed, and mended when
    /// it
    ///         is opened again.
    template <typename Work> auto with(const Work &work)
    {
        try {
            return work(store());
        } catch (const QueueDamaged &error) {
            closeDamaged(QString::fromUtf8(error.what()));
            throw;
        }
    }
    /// Closes the queue, in which damage was found; the next opening sets it aside.
    void closeDamaged(const QString &damage);

private:
    bool keepBallast() const;
    void takeInSpilled();
    void spill(const QueueMessage &message);

    QString m_fileName;
    qint64 m_ballastBytes;
    SpillFile m_spill;
    std::unique_ptr<MessageStore> m_store;
    QString m_knownDamage;
};

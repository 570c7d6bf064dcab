#pragma once

#include "host/export.h"
#include "host/framework/tr.h"
#include "host/queue/queuemessage.h"

#include <QList>
#include <QMap>
#include <QStringList>

class MessageStore;
class QueueDatabase;

/// What a person may ask of the outgoing queue, and do to it.
///
/// Looks at it while deliverers work, and changes nothing that one of them has in hand. Quick with
/// a million messages. Every change is on disk, synced, when it returns; what fails is a
/// `StorageError`. The store must outlive it; belongs to the thread of the store.
class POSHOST_EXPORT QueueOffice
{
public:
    /// What there is beside the store.
    struct Beside
    {
        /// Why a shared queue cannot be reached: the store is then this machine's own.
        tr::Tr unreached;
        /// This machine's own store with what waits to move to a shared queue; null: none beside.
        /// Must outlive the office too.
        MessageStore *local = nullptr;
        QList<QueueMessage> spilled; ///< what this machine's own store could not take yet
    };

    explicit QueueOffice(MessageStore &store, Beside beside = {{}, nullptr, {}});

    /// The file that the messages are in.
    [[nodiscard]] QString fileName() const;

    struct Status
    {
        QMap<MessageState, qint64> counts; ///< of every state; pending ones with those spilled
        qint64 spilled = 0; ///< pending ones that the queue's file could not take yet
        qint64 moved = 0; ///< parked ones that were moved to another queue
        QDateTime oldestWaiting; ///< when the first that waits was enqueued; invalid: none waits
        QString lastError; ///< of the last attempt that failed; empty: none
        QDateTime lastErrorTime;
        QDateTime lastSuccess; ///< when a message was delivered; invalid: never
        /// Why a shared queue cannot be reached; the counts are then those of this machine.
        tr::Tr unreached;
        /// Messages of this machine that have to move to a shared queue, with those spilled.
        qint64 waitingHere = 0;
    };
    [[nodiscard]] Status status();

    struct Page
    {
        QList<MessageState> states; ///< none: all but delivered
        qint64 behind = 0; ///< number behind which the page begins
        int size = 100; ///< messages at most
    };
    /// Messages in the order of enqueueing, without headers and bodies. What waits on this machine
    /// to move to a shared queue, and behind that what is in the spill file, comes behind all
    /// others, with numbers of its own above theirs.
    [[nodiscard]] QList<QueueMessage> list(const Page &page);
    /// The messages whose ids begin so, whole: none, the one that is meant, or two when there are
    /// more. An empty beginning means none.
    [[nodiscard]] QList<QueueMessage> find(const QString &idBeginning);

    /// The messages that were enqueued while the document of that correlation id was the current
    /// one, in the order of enqueueing, without headers and bodies. An empty id means none.
    [[nodiscard]] QList<QueueMessage> ofDocument(const QString &correlationId);

    /// Lets messages that wait, are parked or were refused be sent as soon as possible, as if never
    /// tried by a deliverer that died. Not those that were moved to another queue.
    /// @return the ids of those that were changed.
    QStringList retry(const QStringList &ids);
    /// Parks messages that wait or were refused.
    /// @return the ids of those that were changed.
    QStringList setAside(const QStringList &ids);
    /// Gives the undelivered messages of a queue that carry an "Authorization" another value of it,
    /// and lets those that wait be sent as soon as possible.
    /// @return how many were changed.
    int reauthorise(const QString &queue, const QString &authorization);

    /// Writes what is not delivered, but for what is in a deliverer's hands, to a file without
    /// credentials, and keeps it here parked as moved to that file. The file is private and comes
    /// whole under its name.
    /// @return how many messages the file has.
    /// @throws StorageError also when the file is there already; nothing is then changed.
    int exportTo(const QString &fileName);
    /// Adds the messages of such a file behind the others; those whose ids are there already are
    /// passed over, or taken back where they had been moved away.
    /// @param authorization the value that messages get that had one; empty: they get none.
    /// @return how many were added or taken back.
    /// @throws StorageError also when the file is not whole; nothing is then changed.
    int importFrom(const QString &fileName, const QString &authorization);

private:
    [[nodiscard]] QList<QueueMessage> numbered(const QList<qint64> &numbers);
    [[nodiscard]] QDateTime enqueuedFirst(const QString &state);
    [[nodiscard]] QList<QueueMessage> listOwn(const Page &page);
    void appendLocal(QList<QueueMessage> &messages, const Page &page);
    void appendSpilled(QList<QueueMessage> &messages, const Page &page) const;
    [[nodiscard]] QDateTime oldestWaiting();
    bool giveCredentials(qint64 number, const QString &authorization);
    void addWhatIsBeside(Status &status);

    MessageStore &m_store;
    QueueDatabase &m_database;
    Beside m_beside;
};

#pragma once

#include "host/export.h"
#include "host/framework/singleton.h"
#include "host/framework/tr.h"
#include "host/queue/queueerror.h"
#include "host/queue/queuemessage.h"
#include "host/queue/queueoffice.h"
#include "host/queue/verdict.h"

#include <QHash>
#include <QList>
#include <QMap>
#include <QString>
#include <QVariant>

#include <functional>
#include <memory>

class MessageStore;
class Outbox;

/// The till's outgoing queue. `Singleton<DBQueueBroker>::instance()`.
///
/// The messages are in the SQLite file that the setting "Queue:database" names, otherwise in the
/// state folder; or in the PostgreSQL database whose address it has, which many tills share, and in
/// the file of the state folder while its server cannot be reached. The queue is opened on first
/// use and closed with this object, or with the application. All operations belong to the thread of
/// the first one.
class POSHOST_EXPORT DBQueueBroker
{
public:
    DBQueueBroker();
    virtual ~DBQueueBroker();
    Q_DISABLE_COPY_MOVE(DBQueueBroker)

    /// Opens the queue's file where it is not open yet; the other operations do so by themselves.
    /// @return what a person must hear of what the opening found: damage, and what was saved.
    /// @throws StorageError when it cannot be opened.
    QList<tr::Tr> open();

    /// Puts a message behind those that wait. It is on disk, synced, when this returns: in the
    /// queue, otherwise in the spill file beside its file, from which it comes later. A shared
    /// queue's server is waited for two seconds at most.
    /// @param queue   name of the queue, which decides how answers are judged.
    /// @param message what to send: "url", "headers" (name to text) and "body".
    /// @param remark  free text kept with the message; may be empty.
    /// @throws BasicException when the message could not be kept; nothing was then written.
    virtual void enqueue(
        const QString &queue, const QMap<QString, QVariant> &message, const QString &remark);

    /// Sets who judges the answers to messages of that queue. Without anybody every 2xx answer
    /// means delivered and everything else another attempt.
    void setVerdict(const QString &queue, const VerdictFunction &verdict);
    /// Sends every waiting message once, in the order of enqueueing, and waits for the answers. The
    /// attempt is counted on disk before the request goes out. After three exchanges in a row
    /// without an answer the pass ends.
    /// @param observer may be empty.
    /// @throws StorageError when the queue cannot be read or written.
    DeliveryReport deliver(const DeliveryObserver &observer = {});

    /// The same for messages whose waiting time is over only, for a service that delivers all the
    /// time. After a pass that ended since nothing was reached, or since the credentials were not
    /// accepted, further ones do nothing for a while.
    /// @throws StorageError when the queue cannot be read or written.
    DeliveryReport deliverDue(const DeliveryObserver &observer = {});
    /// When `deliverDue` has something to do next, a time in the past meaning now; invalid when
    /// nothing waits.
    /// @throws StorageError when the queue cannot be read.
    [[nodiscard]] QDateTime nextDue();

    /// The folder whose files change when this machine's queue does.
    [[nodiscard]] QString folder();
    /// Whether other machines may change the queue, which shows in no file of this one.
    [[nodiscard]] bool isShared();

    /// How many messages wait, those in a deliverer's hands and in the spill file included. Of a
    /// shared queue that cannot be reached only those that wait for it on this machine; the same
    /// goes for `list`.
    /// @throws StorageError when the queue cannot be read.
    [[nodiscard]] int waiting();
    /// How many of them are in the spill file still, since the queue's file cannot take them. They
    /// are not sent before it can.
    /// @throws StorageError when the queue cannot be read.
    [[nodiscard]] int spilled();
    /// What is not delivered, refused and parked messages included, in the order of enqueueing;
    /// without their headers and bodies.
    /// @throws StorageError when the queue cannot be read.
    [[nodiscard]] QList<QueueMessage> list();

    /// Does something with what a person may ask of the queue and do to it. While the server of a
    /// shared queue cannot be reached, with what waits for it on this machine.
    /// @throws StorageError when the queue cannot be opened, and what the work throws.
    template <typename Work> auto inOffice(const Work &work)
    {
        try {
            QueueOffice office = openOffice();
            return work(office);
        } catch (const QueueUnusable &error) {
            closeQueue(error);
            throw;
        }
    }

private:
    Outbox &outbox();
    [[nodiscard]] QueueOffice openOffice();
    void closeQueue(const QueueUnusable &error);
    /// What is in the spill file still.
    QList<QueueMessage> lookAtEach(const std::function<void(MessageStore &)> &look);

    std::unique_ptr<Outbox> m_outbox;
    QHash<QString, VerdictFunction> m_verdicts;
};

extern template class POSHOST_EXPORT Singleton<DBQueueBroker>;

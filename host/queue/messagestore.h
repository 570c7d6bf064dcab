#pragma once

#include "host/framework/tr.h"
#include "host/queue/queueerror.h"
#include "host/queue/queuehome.h"
#include "host/queue/queuemessage.h"

#include <QList>

#include <memory>
#include <optional>

/// Which message a deliverer wants next.
struct Wanted
{
    QDateTime now;
    qint64 behind = 0; ///< number behind which to look
    bool dueOnly = false; ///< leave those alone whose next attempt is still to come
};

/// What a deliverer was given.
struct CheckedOut
{
    std::optional<QueueMessage> message; ///< nothing when none is to be had
    bool othersAtWork = false; ///< another deliverer has a message of the queue in hand
    int parked = 0; ///< messages that were parked on the way, since they ended their deliverers
};

/// The messages of the outgoing queue in their table: all of the deliverer's SQL, no exchange.
///
/// Every operation is on disk, synced, when it returns; what fails is a `StorageError` and has
/// changed nothing. Several stores, in several processes and on several machines, may be open on
/// one queue.
class POSHOST_EXPORT MessageStore
{
public:
    /// Deliverers that a message may end before it is parked.
    static constexpr int deliverersToLose = 2;
    /// Delivered messages that are deleted in one step, so that nobody waits long for the file.
    static constexpr int deletedInOneStep = 200;

    /// Messages that are settled one behind the other until their counts are summed.
    static constexpr int settledBetweenSums = 500;

    /// Opens the queue's file, see `QueueFile`.
    explicit MessageStore(const QString &fileName, const tr::Tr &knownDamage = {});
    /// @param owner name of this deliverer, different from that of any other.
    MessageStore(std::unique_ptr<QueueHome> home, QString owner);

    /// Where the messages are.
    [[nodiscard]] QString fileName() const { return database().fileName(); }
    /// What a person must hear of what the opening found.
    [[nodiscard]] QList<tr::Tr> notices() const { return m_home->notices(); }
    [[nodiscard]] QueueDatabase &database() const { return m_home->database(); }
    /// The file of which every deliverer holds a share of a lock; empty: none is needed.
    [[nodiscard]] QString deliveryLock() const { return m_home->deliveryLock(); }

    /// Adds a message behind the others; its number is given here.
    void append(const QueueMessage &message);
    /// Adds messages behind the others in one step, but for those whose ids are there already.
    /// @return how many were added.
    int takeIn(const QList<QueueMessage> &messages);
    /// Those of the messages whose ids are not in the queue, in their order.
    [[nodiscard]] QList<QueueMessage> missing(const QList<QueueMessage> &messages);
    /// How many messages are pending or being sent.
    [[nodiscard]] int waiting();
    /// Everything but delivered messages, in order, without headers and bodies.
    [[nodiscard]] QList<QueueMessage> undelivered();

    /// Whether there is anything that could move to another queue.
    [[nodiscard]] bool hasMovable();
    /// The first messages that can move to another queue, in order: what is neither delivered nor
    /// was exported. For who holds the whole of `deliveryLock`.
    /// @throws StorageError when a deliverer may still have one in hand.
    [[nodiscard]] QList<QueueMessage> firstMovable(int count, const QDateTime &now);
    /// Takes messages away that are in another queue now.
    void removeMoved(const QList<QueueMessage> &messages);

    /// Takes the first waiting message that is wanted into this store's hands, with a lease, and
    /// counts the attempt. One whose lane has a message in another deliverer's hands is passed
    /// over. Before that, messages whose leases are over wait again, or are parked when they have
    /// ended too many deliverers.
    [[nodiscard]] CheckedOut checkOut(const Wanted &wanted);
    /// Notes what became of a message that was checked out, and takes the next one in the same
    /// step. A message that was taken from this store meanwhile stays as it is.
    [[nodiscard]] CheckedOut settleAndCheckOut(const QueueMessage &message, const Wanted &wanted);
    /// The same without a next one.
    void settle(const QueueMessage &message);

    /// From when on passes that send only what is due may do so; invalid: at once.
    [[nodiscard]] QDateTime heldUntil();
    /// How many passes in a row ended because nothing was reached.
    [[nodiscard]] int stopsInRow();
    /// Notes both, for this machine only where others share the queue.
    void hold(int stopsInRow, const QDateTime &until);
    /// Ends what holds passes back, on all machines: something was reached, or is to be tried.
    void release();
    /// When the first pending message may be sent; invalid when there is none.
    [[nodiscard]] QDateTime nextAttempt();

    /// Deletes some of the messages that were delivered before that time.
    /// @return how many.
    int deleteDelivered(const QDateTime &before);
    /// Keeps quick what counts the messages of a shared queue.
    void sumCounts();

private:
    /// A message that may be taken.
    struct Candidate
    {
        qint64 number = 0; ///< 0: there is none
        QString lane;
        bool hasLane = false; ///< no other deliverer gets a message of the lane now
    };

    [[nodiscard]] int takeBack(const QDateTime &now, QStringList &busyLanes);
    [[nodiscard]] bool takeBack(const QueueMessage &message);
    [[nodiscard]] qint64 choose(const Wanted &wanted, QStringList &busyLanes);
    [[nodiscard]] Candidate firstOutside(const Wanted &wanted, const QStringList &busyLanes);
    [[nodiscard]] bool mayTake(const Candidate &candidate, const Wanted &wanted);
    [[nodiscard]] CheckedOut takeNext(const Wanted &wanted);
    [[nodiscard]] QDateTime leaseTime(const QDateTime &now);
    [[nodiscard]] bool isOver(const QueueMessage &message, const QDateTime &now) const;
    [[nodiscard]] QString ofThisMachine(const QString &fact) const;
    void noteOutcome(const QueueMessage &message);
    void noteSuccess(const QueueMessage &message);

    std::unique_ptr<QueueHome> m_home;
    QString m_owner;
    int m_settled = 0;
    std::chrono::steady_clock::time_point m_successNotedUntil{};
};

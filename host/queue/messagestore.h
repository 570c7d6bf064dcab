#pragma once

#include "host/queue/queueerror.h"
#include "host/queue/queuefile.h"
#include "host/queue/queuemessage.h"

#include <QList>

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
/// changed nothing. Several stores, in several processes, may be open on one file.
class POSHOST_EXPORT MessageStore
{
public:
    /// Deliverers that a message may end before it is parked.
    static constexpr int deliverersToLose = 2;
    /// Delivered messages that are deleted in one step, so that nobody waits long for the file.
    static constexpr int deletedInOneStep = 200;

    /// @param knownDamage as `QueueFile` takes it.
    explicit MessageStore(const QString &fileName, const QString &knownDamage = {});

    /// Where the messages are.
    [[nodiscard]] QString fileName() const { return m_fileName; }
    /// What a person must hear of what the opening found.
    [[nodiscard]] QList<tr::Tr> notices() const { return m_file.notices(); }
    [[nodiscard]] QueueDatabase &database() { return m_file.database(); }

    /// Adds a message behind the others; its number is given here.
    void append(const QueueMessage &message);
    /// Adds messages behind the others in one step, but for those whose ids are there already.
    /// @return how many were added.
    int takeIn(const QList<QueueMessage> &messages);
    /// How many messages are pending or being sent.
    [[nodiscard]] int waiting();
    /// Everything but delivered messages, in order, without headers and bodies.
    [[nodiscard]] QList<QueueMessage> undelivered();

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
    /// Notes both; 0 and an invalid time when something was reached.
    void hold(int stopsInRow, const QDateTime &until);
    /// When the first pending message may be sent; invalid when there is none.
    [[nodiscard]] QDateTime nextAttempt();

    /// Deletes some of the messages that were delivered before that time.
    /// @return how many.
    int deleteDelivered(const QDateTime &before);

private:
    int takeBack(const QDateTime &now, QStringList &busyLanes);
    [[nodiscard]] qint64 choose(const Wanted &wanted, const QStringList &busyLanes);
    [[nodiscard]] CheckedOut takeNext(const Wanted &wanted);
    void noteOutcome(const QueueMessage &message);

    QString m_fileName;
    QueueFile m_file;
    QString m_owner;
};

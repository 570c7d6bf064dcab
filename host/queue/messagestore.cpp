#include "host/queue/messagestore.h"

#include "host/queue/backoff.h"
#include "host/queue/leaseowner.h"
#include "host/queue/messagerow.h"
#include "host/queue/messagetable.h"
#include "host/queue/queuefacts.h"
#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString isWaiting = u"state IN ('pending', 'sending')"_s;

const Log4Qt::Logger *logger()
{
    return Log4Qt::LogManager::logger(u"poshost.queue"_s);
}

QStringList columnsOfLease()
{
    return {
        u"number"_s, u"id"_s, u"lane"_s, u"lease_owner"_s, u"lease_until"_s, u"deliverers_lost"_s};
}

} // namespace

MessageStore::MessageStore(const QString &fileName, const QString &knownDamage)
    : m_fileName(fileName)
    , m_file(fileName, knownDamage)
    , m_owner(leaseowner::makeName())
{ }

void MessageStore::append(const QueueMessage &message)
{
    messagetable::insert(database(), message);
}

int MessageStore::takeIn(const QList<QueueMessage> &messages)
{
    QueueTransaction transaction(database());
    int added = 0;
    for (const QueueMessage &message : messages)
        added += messagetable::insert(database(), message) ? 1 : 0;
    transaction.commit();
    return added;
}

int MessageStore::waiting()
{
    QSqlQuery count = database().run(u"SELECT sum(messages) FROM counts WHERE "_s + isWaiting);
    return count.next() ? count.value(0).toInt() : 0;
}

QList<QueueMessage> MessageStore::undelivered()
{
    QList<QueueMessage> messages;
    QSqlQuery row = database().run(messagetable::select(messagerow::shortColumns())
        + u"WHERE state <> 'delivered' ORDER BY number"_s);
    while (row.next())
        messages.append(messagetable::messageFrom(row));
    return messages;
}

CheckedOut MessageStore::checkOut(const Wanted &wanted)
{
    QueueTransaction transaction(database());
    const CheckedOut next = takeNext(wanted);
    transaction.commit();
    return next;
}

CheckedOut MessageStore::settleAndCheckOut(const QueueMessage &message, const Wanted &wanted)
{
    QueueTransaction transaction(database());
    noteOutcome(message);
    const CheckedOut next = takeNext(wanted);
    transaction.commit();
    return next;
}

void MessageStore::settle(const QueueMessage &message)
{
    QueueTransaction transaction(database());
    noteOutcome(message);
    transaction.commit();
}

CheckedOut MessageStore::takeNext(const Wanted &wanted)
{
    CheckedOut next;
    QStringList busyLanes;
    next.parked = takeBack(wanted.now, busyLanes);
    next.othersAtWork = !busyLanes.isEmpty();
    const qint64 number = choose(wanted, busyLanes);
    if (number == 0)
        return next;
    QSqlQuery row = database().run(
        messagetable::select(messagerow::columns()) + u"WHERE number = ?"_s, {number});
    if (!row.next())
        throw QueueDamaged(
            u"%1: message %2 stands in the index only"_s.arg(m_fileName).arg(number));
    QueueMessage message = messagetable::messageFrom(row);
    message.state = MessageState::Sending;
    ++message.attempts;
    message.lastAttempt = wanted.now;
    message.leaseOwner = m_owner;
    message.leaseUntil = wanted.now.addMSecs(leaseowner::leaseLength.count());
    database().run(u"UPDATE messages SET state = ?, attempts = ?, last_attempt = ?, "
                   u"lease_owner = ?, lease_until = ? WHERE number = ?"_s,
        {stateName(message.state), message.attempts, messagerow::written(message.lastAttempt),
            message.leaseOwner, messagerow::written(message.leaseUntil), number});
    next.message = message;
    return next;
}

int MessageStore::takeBack(const QDateTime &now, QStringList &busyLanes)
{
    int parked = 0;
    QSqlQuery row
        = database().run(messagetable::select(columnsOfLease()) + u"WHERE state = 'sending'"_s);
    QList<QueueMessage> ended;
    while (row.next()) {
        const QueueMessage message = messagetable::messageFrom(row);
        // What this store could not settle, a full disk for instance, has ended no deliverer.
        const bool isOwn = message.leaseOwner == m_owner;
        if (isOwn || leaseowner::isOver(message.leaseOwner, message.leaseUntil, now))
            ended.append(message);
        else
            busyLanes.append(message.lane);
    }
    row.finish();
    for (const QueueMessage &message : ended) {
        const int lost = message.deliverersLost + (message.leaseOwner == m_owner ? 0 : 1);
        const bool parks = lost >= deliverersToLose;
        database().run(u"UPDATE messages SET state = ?, deliverers_lost = ?, lease_owner = '', "
                       u"lease_until = '' WHERE number = ?"_s,
            {stateName(parks ? MessageState::Parked : MessageState::Pending), lost,
                message.number});
        if (!parks)
            continue;
        database().run(u"UPDATE messages SET last_error = ? WHERE number = ?"_s,
            {u"its deliverer was ended %1 times while it sent this message"_s.arg(lost),
                message.number});
        logger()->error(u"message %1 was parked: its deliverer was ended %2 times"_s.arg(
            message.id, QString::number(lost)));
        ++parked;
    }
    return parked;
}

// Answered from the index of the states alone; a message is read only when it is taken.
qint64 MessageStore::choose(const Wanted &wanted, const QStringList &busyLanes)
{
    QString condition = u"state = 'pending' AND number > ?"_s;
    QVariantList values{wanted.behind};
    if (wanted.dueOnly) {
        // A time further off than any wait was noted before the clock was set back.
        condition += u" AND (next_attempt <= ? OR next_attempt > ?)"_s;
        values += {messagerow::written(wanted.now),
            messagerow::written(wanted.now.addMSecs(backoff::longestWait.count()))};
    }
    if (!busyLanes.isEmpty()) {
        condition
            += u" AND lane NOT IN (%1)"_s.arg(QStringList(busyLanes.size(), u"?"_s).join(u", "_s));
        for (const QString &lane : busyLanes)
            values.append(lane);
    }
    QSqlQuery row = database().run(
        u"SELECT number FROM messages WHERE %1 ORDER BY number LIMIT 1"_s.arg(condition), values);
    return row.next() ? row.value(0).toLongLong() : 0;
}

void MessageStore::noteOutcome(const QueueMessage &message)
{
    const QSqlQuery noted = database().run(
        u"UPDATE messages SET state = ?, next_attempt = ?, last_code = ?, last_error = ?, "
        u"answer = ?, answered_otherwise_since = ?, settled = ?, "
        u"lease_owner = '', lease_until = '' "
        u"WHERE number = ? AND state = 'sending' AND lease_owner = ?"_s,
        {stateName(message.state), messagerow::written(message.nextAttempt), message.lastCode,
            messagerow::present(message.lastError), messagerow::present(message.answer),
            messagerow::written(message.answeredOtherwiseSince),
            messagerow::written(message.settled), message.number, m_owner});
    if (noted.numRowsAffected() == 0) {
        logger()->warn(
            u"message %1 was taken from its deliverer, its outcome is not noted"_s.arg(message.id));
        return;
    }
    if (message.state == MessageState::Delivered) {
        database().setFact(queuefacts::lastSuccess, messagerow::written(message.settled));
        return;
    }
    database().setFact(queuefacts::lastError, message.lastError);
    database().setFact(queuefacts::lastErrorTime, messagerow::written(message.lastAttempt));
}

QDateTime MessageStore::heldUntil()
{
    return messagerow::readTime(database().fact(queuefacts::heldUntil));
}

int MessageStore::stopsInRow()
{
    return database().fact(queuefacts::stopsInRow).toInt();
}

void MessageStore::hold(int stopsInRow, const QDateTime &until)
{
    QueueTransaction transaction(database());
    database().setFact(queuefacts::stopsInRow, QString::number(stopsInRow));
    database().setFact(queuefacts::heldUntil, messagerow::written(until));
    transaction.commit();
}

QDateTime MessageStore::nextAttempt()
{
    QSqlQuery row
        = database().run(u"SELECT min(next_attempt) FROM messages WHERE state = 'pending'"_s);
    return row.next() ? messagerow::readTime(row.value(0)) : QDateTime();
}

int MessageStore::deleteDelivered(const QDateTime &before)
{
    return database()
        .run(u"DELETE FROM messages WHERE number IN (SELECT number FROM messages "
             u"WHERE state = 'delivered' AND settled < ? AND settled <> '' LIMIT ?)"_s,
            {messagerow::written(before), deletedInOneStep})
        .numRowsAffected();
}

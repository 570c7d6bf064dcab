#include "host/queue/messagestore.h"

#include "host/queue/backoff.h"
#include "host/queue/leaseowner.h"
#include "host/queue/messagerow.h"
#include "host/queue/messagetable.h"
#include "host/queue/queuefacts.h"
#include "host/queue/queuefile.h"
#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <QSysInfo>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString isWaiting = u"state IN ('pending', 'sending')"_s;
const QString isUndelivered = u"state IN ('pending', 'sending', 'refused', 'parked')"_s;

const Log4Qt::Logger *logger()
{
    return Log4Qt::LogManager::logger(u"poshost.queue"_s);
}

QString isWanted(const Wanted &wanted)
{
    const QString waits = u"state = 'pending' AND number > ?"_s;
    // A time further off than any wait was noted before the clock was set back.
    return wanted.dueOnly ? waits + u" AND (next_attempt <= ? OR next_attempt > ?)"_s : waits;
}

QVariantList valuesOf(const Wanted &wanted)
{
    if (!wanted.dueOnly)
        return {wanted.behind};
    return {wanted.behind, messagerow::written(wanted.now),
        messagerow::written(wanted.now.addMSecs(backoff::longestWait.count()))};
}

QStringList columnsOfLease()
{
    return {
        u"number"_s, u"id"_s, u"lane"_s, u"lease_owner"_s, u"lease_until"_s, u"deliverers_lost"_s};
}

} // namespace

MessageStore::MessageStore(const QString &fileName, const tr::Tr &knownDamage)
    : MessageStore(std::make_unique<QueueFile>(fileName, knownDamage), leaseowner::makeName())
{ }

MessageStore::MessageStore(std::unique_ptr<QueueHome> home, QString owner)
    : m_home(std::move(home))
    , m_owner(std::move(owner))
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

QList<QueueMessage> MessageStore::missing(const QList<QueueMessage> &messages)
{
    QList<QueueMessage> missing;
    for (const QueueMessage &message : messages)
        if (!database().run(u"SELECT 1 FROM messages WHERE id = ?"_s, {message.id}).next())
            missing.append(message);
    return missing;
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

bool MessageStore::hasMovable()
{
    return database()
        .run(u"SELECT 1 FROM messages WHERE %1 AND moved_to = '' LIMIT 1"_s.arg(isUndelivered))
        .next();
}

QList<QueueMessage> MessageStore::firstMovable(int count, const QDateTime &now)
{
    QueueTransaction transaction(database());
    QStringList busyLanes;
    static_cast<void>(takeBack(now, busyLanes));
    QList<QueueMessage> messages;
    QSqlQuery row = database().run(messagetable::select(messagerow::columns())
            + u"WHERE %1 AND moved_to = '' ORDER BY number LIMIT ?"_s.arg(isUndelivered),
        {count});
    while (row.next())
        messages.append(messagetable::messageFrom(row));
    row.finish();
    transaction.commit();
    if (!busyLanes.isEmpty())
        throw StorageError(tr::Tr(
            u"queueMessageInOtherHands"_s, u"%1: сообщение ещё отправляет другая программа"_s)
                               .arg(fileName()));
    return messages;
}

void MessageStore::removeMoved(const QList<QueueMessage> &messages)
{
    QueueTransaction transaction(database());
    for (const QueueMessage &message : messages)
        database().run(u"DELETE FROM messages WHERE number = ?"_s, {message.number});
    transaction.commit();
}

CheckedOut MessageStore::checkOut(const Wanted &wanted)
{
    QueueTransaction transaction(database());
    CheckedOut next = takeNext(wanted);
    transaction.commit();
    return next;
}

CheckedOut MessageStore::settleAndCheckOut(const QueueMessage &message, const Wanted &wanted)
{
    QueueTransaction transaction(database());
    noteOutcome(message);
    CheckedOut next = takeNext(wanted);
    transaction.commit();
    if (++m_settled % settledBetweenSums == 0)
        sumCounts();
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
    const QDateTime now = leaseTime(wanted.now);
    CheckedOut next;
    QStringList busyLanes;
    next.parked = takeBack(now, busyLanes);
    const qint64 number = choose(wanted, busyLanes);
    next.othersAtWork = !busyLanes.isEmpty();
    if (number == 0)
        return next;
    QSqlQuery row
        = database().run(u"UPDATE messages SET state = 'sending', attempts = attempts + 1, "
                         u"last_attempt = ?, lease_owner = ?, lease_until = ? WHERE number = ? "
                         u"RETURNING "_s
                + messagerow::columns().join(u", "_s),
            {messagerow::written(wanted.now), m_owner,
                messagerow::written(now.addMSecs(leaseowner::leaseLength.count())), number});
    if (!row.next())
        throw QueueDamaged(
            tr::Tr(u"queueDamageIndex"_s, u"%1: сообщение %2 есть только в индексе"_s)
                .arg(fileName())
                .arg(QString::number(number)));
    next.message = messagetable::messageFrom(row);
    return next;
}

// Where machines share a queue, its leases begin and end by its own clock.
QDateTime MessageStore::leaseTime(const QDateTime &now)
{
    const QString &question = database().dialect().now;
    if (question.isEmpty())
        return now;
    QSqlQuery answer = database().run(question);
    return answer.next() ? messagerow::readTime(answer.value(0)) : now;
}

bool MessageStore::isOver(const QueueMessage &message, const QDateTime &now) const
{
    // What this store could not settle, a full disk for instance.
    if (message.leaseOwner == m_owner)
        return true;
    // A process that this machine does not know may be one of another machine of the same name.
    if (database().dialect().isShared())
        return !message.leaseUntil.isValid() || now >= message.leaseUntil;
    return leaseowner::isOver(message.leaseOwner, message.leaseUntil, now);
}

int MessageStore::takeBack(const QDateTime &now, QStringList &busyLanes)
{
    QSqlQuery row = database().run(
        messagetable::select(columnsOfLease()) + u"WHERE state = 'sending' ORDER BY number"_s);
    QList<QueueMessage> ended;
    while (row.next()) {
        const QueueMessage message = messagetable::messageFrom(row);
        if (isOver(message, now))
            ended.append(message);
        else
            busyLanes.append(message.lane);
    }
    row.finish();
    int parked = 0;
    for (const QueueMessage &message : ended)
        parked += takeBack(message) ? 1 : 0;
    return parked;
}

// True when it was parked. Another deliverer may have taken it back, and up again, meanwhile.
bool MessageStore::takeBack(const QueueMessage &message)
{
    const int lost = message.deliverersLost + (message.leaseOwner == m_owner ? 0 : 1);
    const bool parks = lost >= deliverersToLose;
    const int changed
        = database()
              .run(u"UPDATE messages SET state = ?, deliverers_lost = ?, lease_owner = '', "
                   u"lease_until = '' WHERE number = ? AND state = 'sending' AND lease_owner = ? "
                   u"AND lease_until = ?"_s,
                  {stateName(parks ? MessageState::Parked : MessageState::Pending), lost,
                      message.number, messagerow::present(message.leaseOwner),
                      messagerow::written(message.leaseUntil)})
              .numRowsAffected();
    if (changed == 0 || !parks)
        return false;
    database().run(u"UPDATE messages SET last_error = ? WHERE number = ?"_s,
        {u"its deliverer was ended %1 times while it sent this message"_s.arg(lost),
            message.number});
    logger()->error(u"message %1 was parked: its deliverer was ended %2 times"_s.arg(
        message.id, QString::number(lost)));
    return true;
}

qint64 MessageStore::choose(const Wanted &wanted, QStringList &busyLanes)
{
    Candidate candidate = firstOutside(wanted, busyLanes);
    while (candidate.number != 0 && !mayTake(candidate, wanted)) {
        busyLanes.append(candidate.lane);
        candidate = firstOutside(wanted, busyLanes);
    }
    return candidate.number;
}

// Answered from the index of the states alone; a message is read only when it is taken.
MessageStore::Candidate MessageStore::firstOutside(
    const Wanted &wanted, const QStringList &busyLanes)
{
    QString condition = isWanted(wanted);
    QVariantList values = valuesOf(wanted);
    if (!busyLanes.isEmpty()) {
        condition
            += u" AND lane NOT IN (%1)"_s.arg(QStringList(busyLanes.size(), u"?"_s).join(u", "_s));
        for (const QString &lane : busyLanes)
            values.append(messagerow::present(lane));
    }
    const SqlDialect &dialect = database().dialect();
    const QString first
        = u"SELECT number, lane FROM messages WHERE %1 ORDER BY number LIMIT 1%2"_s.arg(
            condition, dialect.skipLocked);
    // Few are due, or nearly all are: either way another index leads to the first one, and the
    // wrong one through a million rows.
    QSqlQuery row
        = database().run(dialect.takeLane.arg(first), values, QueueDatabase::Planning::EachTime);
    if (!row.next())
        return {};
    return {row.value(0).toLongLong(), row.value(1).toString(), row.value(2).toBool()};
}

// Where transactions run side by side, another deliverer may have taken a message of the lane since
// the choice was made, or hold an earlier one that the choice passed over.
bool MessageStore::mayTake(const Candidate &candidate, const Wanted &wanted)
{
    if (!candidate.hasLane || !database().dialect().isShared())
        return candidate.hasLane;
    const QString lane = messagerow::present(candidate.lane);
    return !database()
                .run(u"SELECT 1 FROM messages WHERE state = 'sending' AND lane = ? UNION ALL "
                     u"SELECT 1 FROM messages WHERE %1 AND lane = ? AND number < ? LIMIT 1"_s.arg(
                         isWanted(wanted)),
                    QVariantList{lane} + valuesOf(wanted) + QVariantList{lane, candidate.number})
                .next();
}

void MessageStore::noteOutcome(const QueueMessage &message)
{
    const int noted = database().change(
        u"UPDATE messages SET state = ?, next_attempt = ?, last_code = ?, last_error = ?, "
        u"answer = ?, answered_otherwise_since = ?, settled = ?, "
        u"lease_owner = '', lease_until = '' "
        u"WHERE number = ? AND state = 'sending' AND lease_owner = ?"_s,
        {stateName(message.state), messagerow::written(message.nextAttempt), message.lastCode,
            messagerow::present(message.lastError), messagerow::present(message.answer),
            messagerow::written(message.answeredOtherwiseSince),
            messagerow::written(message.settled), message.number, m_owner});
    if (noted == 0) {
        logger()->warn(
            u"message %1 was taken from its deliverer, its outcome is not noted"_s.arg(message.id));
        return;
    }
    if (message.state == MessageState::Delivered) {
        noteSuccess(message);
        return;
    }
    database().noteFact(queuefacts::lastError, message.lastError);
    database().noteFact(queuefacts::lastErrorTime, messagerow::written(message.lastAttempt));
}

// All deliverers of a shared queue change that row; once a second is enough of each.
void MessageStore::noteSuccess(const QueueMessage &message)
{
    const auto now = std::chrono::steady_clock::now();
    if (now < m_successNotedUntil)
        return;
    m_successNotedUntil = now + std::chrono::seconds(1);
    database().noteFact(queuefacts::lastSuccess, messagerow::written(message.settled));
}

// What one machine cannot reach another one may.
QString MessageStore::ofThisMachine(const QString &fact) const
{
    return database().dialect().isShared() ? fact + u' ' + QSysInfo::machineHostName() : fact;
}

QDateTime MessageStore::heldUntil()
{
    return messagerow::readTime(database().fact(ofThisMachine(queuefacts::heldUntil)));
}

int MessageStore::stopsInRow()
{
    return database().fact(ofThisMachine(queuefacts::stopsInRow)).toInt();
}

void MessageStore::hold(int stopsInRow, const QDateTime &until)
{
    QueueTransaction transaction(database());
    database().setFact(ofThisMachine(queuefacts::stopsInRow), QString::number(stopsInRow));
    database().setFact(ofThisMachine(queuefacts::heldUntil), messagerow::written(until));
    transaction.commit();
}

void MessageStore::release()
{
    QueueTransaction transaction(database());
    for (const QString &fact : {queuefacts::stopsInRow, queuefacts::heldUntil})
        database().run(
            u"UPDATE facts SET value = '' WHERE name LIKE ?"_s, QVariantList{QString(fact + u'%')});
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
             u"WHERE state = 'delivered' AND settled < ? AND settled <> '' LIMIT ?%1)"_s.arg(
                 database().dialect().skipLocked),
            {messagerow::written(before), deletedInOneStep})
        .numRowsAffected();
}

void MessageStore::sumCounts()
{
    const QString &statement = database().dialect().sumCounts;
    if (!statement.isEmpty())
        database().run(statement);
}

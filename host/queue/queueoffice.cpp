#include "host/queue/queueoffice.h"

#include "host/framework/currenttime.h"
#include "host/queue/authorization.h"
#include "host/queue/messagerow.h"
#include "host/queue/messagestore.h"
#include "host/queue/messagetable.h"
#include "host/queue/queuefacts.h"

#include <algorithm>
#include <limits>

using namespace Qt::Literals::StringLiterals;

namespace {

// In one step, so that a till that enqueues never waits long for the file.
constexpr int changedInOneStep = 200;
constexpr int enoughToBeAmbiguous = 2;

// Above those of any queue.
constexpr qint64 localNumbers = qint64{1} << 62;

const QList<MessageState> undelivered{
    MessageState::Pending, MessageState::Sending, MessageState::Refused, MessageState::Parked};

QString now()
{
    return messagerow::written(MockFactory<CurrentTime>::create()->currentDateTime());
}

/// Runs a statement for each id and tells for which it changed something.
QStringList changeEach(QueueDatabase &database, const QString &statement,
    const QVariantList &values, const QStringList &ids)
{
    QStringList changed;
    QueueTransaction transaction(database);
    for (const QString &id : ids)
        if (database.run(statement, values + QVariantList{id}).numRowsAffected() > 0)
            changed.append(id);
    transaction.commit();
    return changed;
}

} // namespace

QueueOffice::QueueOffice(MessageStore &store, const Shared &shared)
    : m_store(store)
    , m_database(store.database())
    , m_shared(shared)
{ }

QString QueueOffice::fileName() const
{
    return m_store.fileName();
}

QueueOffice::Status QueueOffice::status()
{
    Status status;
    QSqlQuery row = m_database.run(u"SELECT state, sum(messages) FROM counts GROUP BY state"_s);
    while (row.next())
        status.counts[stateNamed(row.value(0).toString())] = row.value(1).toLongLong();
    QSqlQuery moved = m_database.run(u"SELECT count(*) FROM messages WHERE moved_to <> ''"_s);
    status.moved = moved.next() ? moved.value(0).toLongLong() : 0;
    const QDateTime pending = enqueuedFirst(u"pending"_s);
    const QDateTime sending = enqueuedFirst(u"sending"_s);
    status.oldestWaiting
        = pending.isValid() && (!sending.isValid() || pending < sending) ? pending : sending;
    status.lastError = m_database.fact(queuefacts::lastError);
    status.lastErrorTime = messagerow::readTime(m_database.fact(queuefacts::lastErrorTime));
    status.lastSuccess = messagerow::readTime(m_database.fact(queuefacts::lastSuccess));
    status.unreached = m_shared.unreached;
    if (m_shared.local)
        status.waitingHere = m_shared.local->waiting();
    else if (!status.unreached.isEmpty())
        status.waitingHere = m_store.waiting();
    return status;
}

QDateTime QueueOffice::enqueuedFirst(const QString &state)
{
    QSqlQuery row = m_database.run(u"SELECT enqueued FROM messages WHERE number = "
                                   u"(SELECT min(number) FROM messages WHERE state = ?)"_s,
        {state});
    return row.next() ? messagerow::readTime(row.value(0)) : QDateTime();
}

QList<QueueMessage> QueueOffice::list(const Page &page)
{
    QList<QueueMessage> messages;
    if (page.behind < localNumbers)
        messages = listOwn(page);
    if (m_shared.local && messages.size() < page.size)
        appendLocal(messages, page);
    return messages;
}

void QueueOffice::appendLocal(QList<QueueMessage> &messages, const Page &page)
{
    const Page rest{page.states, qMax<qint64>(0, page.behind - localNumbers),
        page.size - static_cast<int>(messages.size())};
    for (QueueMessage &message : QueueOffice(*m_shared.local).list(rest)) {
        message.number += localNumbers;
        messages.append(message);
    }
}

// Each state by itself: so the index gives them in order, and nothing is sorted but the page.
QList<QueueMessage> QueueOffice::listOwn(const Page &page)
{
    QList<qint64> numbers;
    for (const MessageState state : page.states.isEmpty() ? undelivered : page.states) {
        QSqlQuery row = m_database.run(u"SELECT number FROM messages WHERE state = ? AND "
                                       u"number > ? ORDER BY number LIMIT ?"_s,
            {stateName(state), page.behind, page.size});
        while (row.next())
            numbers.append(row.value(0).toLongLong());
    }
    std::sort(numbers.begin(), numbers.end());
    return numbered(numbers.first(qMin<qsizetype>(numbers.size(), page.size)));
}

// In one statement, since a million of them take minutes.
QList<QueueMessage> QueueOffice::numbered(const QList<qint64> &numbers)
{
    // An empty list is a syntax error for the server.
    if (numbers.isEmpty())
        return {};
    QStringList texts;
    for (const qint64 number : numbers)
        texts.append(QString::number(number));
    QSqlQuery row = m_database.run(messagetable::select(messagerow::shortColumns())
        + u"WHERE number IN (%1) ORDER BY number"_s.arg(texts.join(u", "_s)));
    QList<QueueMessage> messages;
    while (row.next())
        messages.append(messagetable::messageFrom(row));
    return messages;
}

QList<QueueMessage> QueueOffice::find(const QString &idBeginning)
{
    QList<QueueMessage> found;
    if (idBeginning.isEmpty())
        return found;
    // A range, so that the index of the ids is used; the character is behind all others.
    const QString behind = idBeginning + QChar(std::numeric_limits<char16_t>::max());
    QSqlQuery row = m_database.run(messagetable::select(messagerow::columns())
            + u"WHERE id >= ? AND id < ? ORDER BY id LIMIT ?"_s,
        {idBeginning, behind, enoughToBeAmbiguous});
    while (row.next())
        found.append(messagetable::messageFrom(row));
    if (m_shared.local)
        found += QueueOffice(*m_shared.local).find(idBeginning);
    // One whose id is just that is meant, whatever others begin so.
    if (!found.isEmpty() && found.first().id == idBeginning)
        found.resize(1);
    return found;
}

QList<QueueMessage> QueueOffice::ofDocument(const QString &correlationId)
{
    QList<QueueMessage> messages;
    // Messages that belong to no document have an empty one.
    if (correlationId.isEmpty())
        return messages;
    QSqlQuery row = m_database.run(messagetable::select(messagerow::shortColumns())
            + u"WHERE correlation_id = ? AND correlation_id <> '' ORDER BY number"_s,
        {correlationId});
    while (row.next())
        messages.append(messagetable::messageFrom(row));
    return messages;
}

QStringList QueueOffice::retry(const QStringList &ids)
{
    const QStringList changed = changeEach(m_database,
        u"UPDATE messages SET state = 'pending', next_attempt = ?, deliverers_lost = 0, "
        u"answered_otherwise_since = '', settled = '' WHERE state IN ('pending', 'parked', "
        u"'refused') AND moved_to = '' AND id = ?"_s,
        {now()}, ids);
    if (!changed.isEmpty())
        m_store.release();
    return changed;
}

QStringList QueueOffice::setAside(const QStringList &ids)
{
    return changeEach(m_database,
        u"UPDATE messages SET state = 'parked' WHERE state IN ('pending', 'refused') AND id = ?"_s,
        {}, ids);
}

int QueueOffice::reauthorise(const QString &queue, const QString &authorization)
{
    int changed = 0;
    qint64 behind = 0;
    for (;;) {
        const QList<QueueMessage> page = listOwn({{}, behind, changedInOneStep});
        if (page.isEmpty())
            break;
        behind = page.last().number;
        QueueTransaction transaction(m_database);
        for (const QueueMessage &message : page) {
            if (message.queue != queue)
                continue;
            QSqlQuery row = m_database.run(
                u"SELECT headers FROM messages WHERE number = ?"_s, {message.number});
            auto headers
                = row.next() ? messagerow::readHeaders(row.value(0)) : QHash<QString, QString>();
            row.finish();
            if (!authorization::replace(headers, authorization))
                continue;
            m_database.run(u"UPDATE messages SET headers = ?, next_attempt = ? WHERE number = ?"_s,
                {messagerow::written(headers), now(), message.number});
            ++changed;
        }
        transaction.commit();
    }
    m_store.release();
    return changed;
}

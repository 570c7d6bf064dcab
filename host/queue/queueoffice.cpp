#include "host/queue/queueoffice.h"

#include "host/framework/currenttime.h"
#include "host/queue/authorization.h"
#include "host/queue/messagerow.h"
#include "host/queue/messagestore.h"
#include "host/queue/messagetable.h"
#include "host/queue/queuefacts.h"

#include <algorithm>
#include <limits>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace {

// In one step, so that a till that enqueues never waits long for the file.
constexpr int changedInOneStep = 200;
constexpr int enoughToBeAmbiguous = 2;

// Above those of any queue.
constexpr qint64 localNumbers = qint64{1} << 62;
constexpr qint64 spilledNumbers = localNumbers + (qint64{1} << 61);

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

QueueOffice::QueueOffice(MessageStore &store, Beside beside)
    : m_store(store)
    , m_database(store.database())
    , m_beside(std::move(beside))
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
    status.oldestWaiting = oldestWaiting();
    status.lastError = m_database.fact(queuefacts::lastError);
    status.lastErrorTime = messagerow::readTime(m_database.fact(queuefacts::lastErrorTime));
    status.lastSuccess = messagerow::readTime(m_database.fact(queuefacts::lastSuccess));
    addWhatIsBeside(status);
    return status;
}

void QueueOffice::addWhatIsBeside(Status &status)
{
    status.unreached = m_beside.unreached;
    status.spilled = m_beside.spilled.size();
    status.counts[MessageState::Pending] += status.spilled;
    if (m_beside.local)
        status.waitingHere = m_beside.local->waiting() + status.spilled;
    else if (!status.unreached.isEmpty())
        status.waitingHere = m_store.waiting() + status.spilled;
}

QDateTime QueueOffice::oldestWaiting()
{
    QList<QDateTime> times{enqueuedFirst(u"pending"_s), enqueuedFirst(u"sending"_s)};
    if (!m_beside.spilled.isEmpty())
        times.append(m_beside.spilled.constFirst().enqueued);
    times.removeAll(QDateTime());
    return times.isEmpty() ? QDateTime() : *std::min_element(times.cbegin(), times.cend());
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
    if (m_beside.local && messages.size() < page.size)
        appendLocal(messages, page);
    if (page.states.isEmpty() || page.states.contains(MessageState::Pending))
        appendSpilled(messages, page);
    return messages;
}

void QueueOffice::appendSpilled(QList<QueueMessage> &messages, const Page &page) const
{
    qint64 number = spilledNumbers;
    for (const QueueMessage &spilled : m_beside.spilled) {
        ++number;
        if (messages.size() >= page.size)
            return;
        if (number <= page.behind)
            continue;
        messages.append(messagerow::shortened(spilled));
        messages.last().number = number;
    }
}

void QueueOffice::appendLocal(QList<QueueMessage> &messages, const Page &page)
{
    const Page rest{page.states, qMax<qint64>(0, page.behind - localNumbers),
        page.size - static_cast<int>(messages.size())};
    for (QueueMessage &message : QueueOffice(*m_beside.local).list(rest)) {
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
    if (m_beside.local)
        found += QueueOffice(*m_beside.local).find(idBeginning);
    for (const QueueMessage &spilled : m_beside.spilled)
        if (spilled.id.startsWith(idBeginning))
            found.append(spilled);
    // One whose id is just that is meant, whatever others begin so.
    const auto meant = std::find_if(found.cbegin(), found.cend(),
        [&idBeginning](const QueueMessage &message) { return message.id == idBeginning; });
    return meant == found.cend() ? found : QList<QueueMessage>{*meant};
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
    if (m_beside.local)
        messages += QueueOffice(*m_beside.local).ofDocument(correlationId);
    for (const QueueMessage &spilled : m_beside.spilled)
        if (spilled.correlationId == correlationId)
            messages.append(messagerow::shortened(spilled));
    return messages;
}

QStringList QueueOffice::retry(const QStringList &ids)
{
    QStringList changed = changeEach(m_database,
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

bool QueueOffice::giveCredentials(qint64 number, const QString &authorization)
{
    QSqlQuery row = m_database.run(u"SELECT headers FROM messages WHERE number = ?"_s, {number});
    auto headers = row.next() ? messagerow::readHeaders(row.value(0)) : QHash<QString, QString>();
    row.finish();
    if (!authorization::replace(headers, authorization))
        return false;
    m_database.run(u"UPDATE messages SET headers = ?, next_attempt = ? WHERE number = ?"_s,
        {messagerow::written(headers), now(), number});
    return true;
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
            if (message.queue == queue && giveCredentials(message.number, authorization))
                ++changed;
        }
        transaction.commit();
    }
    m_store.release();
    return changed;
}

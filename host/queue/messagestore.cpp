#include "host/queue/messagestore.h"

#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::Literals::StringLiterals;

namespace {

// In the order in which `messageFrom` reads them.
const QString listedColumns
    = u"number, id, queue, remark, url, correlation_id, enqueued, attempts, next_attempt, "
      u"last_error, state, answer"_s;
const QString isWaiting = u"state IN ('pending', 'sending')"_s;

QString written(const QDateTime &time)
{
    return time.toUTC().toString(Qt::ISODateWithMs);
}

QDateTime readTime(const QVariant &text)
{
    return QDateTime::fromString(text.toString(), Qt::ISODateWithMs);
}

QByteArray written(const QHash<QString, QString> &headers)
{
    QJsonObject members;
    for (auto header = headers.cbegin(); header != headers.cend(); ++header)
        members.insert(header.key(), header.value());
    return QJsonDocument(members).toJson(QJsonDocument::Compact);
}

QHash<QString, QString> readHeaders(const QVariant &text)
{
    QHash<QString, QString> headers;
    const QJsonObject members = QJsonDocument::fromJson(text.toByteArray()).object();
    for (auto member = members.begin(); member != members.end(); ++member)
        headers.insert(member.key(), member.value().toString());
    return headers;
}

QueueMessage messageFrom(const QSqlQuery &row)
{
    int column = 0;
    QueueMessage message;
    message.number = row.value(column++).toLongLong();
    message.id = row.value(column++).toString();
    message.queue = row.value(column++).toString();
    message.remark = row.value(column++).toString();
    message.url = row.value(column++).toString();
    message.correlationId = row.value(column++).toString();
    message.enqueued = readTime(row.value(column++));
    message.attempts = row.value(column++).toInt();
    message.nextAttempt = readTime(row.value(column++));
    message.lastError = row.value(column++).toString();
    message.state = stateNamed(row.value(column++).toString());
    message.answer = row.value(column++).toByteArray();
    return message;
}

// A null text would be stored as NULL.
QString present(const QString &text)
{
    return text.isNull() ? u""_s : text;
}

QByteArray present(const QByteArray &bytes)
{
    return bytes.isNull() ? QByteArray("") : bytes;
}

} // namespace

MessageStore::MessageStore(const QString &fileName)
    : m_fileName(fileName)
    , m_database(fileName)
{ }

void MessageStore::append(const QueueMessage &message)
{
    m_database.run(u"INSERT INTO messages (id, queue, remark, url, headers, body, correlation_id, "
                   u"enqueued, attempts, next_attempt, last_error, state, answer) "
                   u"VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"_s,
        {message.id, present(message.queue), present(message.remark), present(message.url),
            QString::fromUtf8(written(message.headers)), present(message.body),
            present(message.correlationId), written(message.enqueued), message.attempts,
            written(message.nextAttempt), present(message.lastError), stateName(message.state),
            present(message.answer)});
}

int MessageStore::waiting()
{
    QSqlQuery count = m_database.run(u"SELECT count(*) FROM messages WHERE "_s + isWaiting);
    return count.next() ? count.value(0).toInt() : 0;
}

QList<QueueMessage> MessageStore::undelivered()
{
    QList<QueueMessage> messages;
    QSqlQuery row = m_database.run(u"SELECT "_s + listedColumns
        + u" FROM messages WHERE state <> 'delivered' ORDER BY number"_s);
    while (row.next())
        messages.append(messageFrom(row));
    return messages;
}

std::optional<QueueMessage> MessageStore::checkOut(qint64 behind)
{
    QueueTransaction transaction(m_database);
    std::optional<QueueMessage> message;
    {
        QSqlQuery row = m_database.run(u"SELECT "_s + listedColumns
                + u", headers, body FROM messages WHERE number > ? AND "_s + isWaiting
                + u" ORDER BY number LIMIT 1"_s,
            {behind});
        if (!row.next())
            return {};
        message = messageFrom(row);
        message->headers = readHeaders(row.value(u"headers"_s));
        message->body = row.value(u"body"_s).toByteArray();
    }
    message->state = MessageState::Sending;
    ++message->attempts;
    m_database.run(u"UPDATE messages SET state = ?, attempts = ? WHERE number = ?"_s,
        {stateName(message->state), message->attempts, message->number});
    transaction.commit();
    return message;
}

void MessageStore::settle(const QueueMessage &message)
{
    m_database.run(u"UPDATE messages SET state = ?, next_attempt = ?, last_error = ?, answer = ? "
                   u"WHERE number = ?"_s,
        {stateName(message.state), written(message.nextAttempt), present(message.lastError),
            present(message.answer), message.number});
}

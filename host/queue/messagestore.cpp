#include "host/queue/messagestore.h"

#include "host/queue/messagerow.h"
#include "host/queue/messagetable.h"

using namespace Qt::Literals::StringLiterals;

namespace {

const QString isWaiting = u"state IN ('pending', 'sending')"_s;

} // namespace

MessageStore::MessageStore(const QString &fileName)
    : m_fileName(fileName)
    , m_file(fileName)
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

std::optional<QueueMessage> MessageStore::checkOut(qint64 behind)
{
    QueueTransaction transaction(database());
    std::optional<QueueMessage> message;
    {
        QSqlQuery row = database().run(messagetable::select(messagerow::columns())
                + u"WHERE number > ? AND "_s + isWaiting + u" ORDER BY number LIMIT 1"_s,
            {behind});
        if (!row.next())
            return {};
        message = messagetable::messageFrom(row);
    }
    message->state = MessageState::Sending;
    ++message->attempts;
    database().run(u"UPDATE messages SET state = ?, attempts = ? WHERE number = ?"_s,
        {stateName(message->state), message->attempts, message->number});
    transaction.commit();
    return message;
}

void MessageStore::settle(const QueueMessage &message)
{
    database().run(u"UPDATE messages SET state = ?, next_attempt = ?, last_error = ?, answer = ? "
                   u"WHERE number = ?"_s,
        {stateName(message.state), messagerow::written(message.nextAttempt),
            messagerow::present(message.lastError), messagerow::present(message.answer),
            message.number});
}

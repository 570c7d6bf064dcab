#include "host/queue/messagestore.h"

#include "host/queue/messagerow.h"
#include "host/queue/queuelayout.h"
#include "host/storage/atomicfile.h"
#include "host/storage/posixfile.h"

#include <QFileInfo>
#include <QSqlRecord>

#include <fcntl.h>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString isWaiting = u"state IN ('pending', 'sending')"_s;

QString listed(const QStringList &columns)
{
    return columns.join(u", "_s);
}

QueueMessage messageFrom(const QSqlQuery &row)
{
    const QSqlRecord record = row.record();
    return messagerow::read([&row, &record](const QString &column) {
        const int index = record.indexOf(column);
        return index < 0 ? QVariant() : row.value(index);
    });
}

QString insertStatement()
{
    const QStringList filled = messagerow::columns().mid(1);
    return u"INSERT INTO messages (%1) VALUES (%2)"_s.arg(
        listed(filled), QStringList(filled.size(), u"?"_s).join(u", "_s));
}

// Makes the file private from its first moment on; the database gives those that it makes beside it
// the same mode.
void makePrivateFile(const QString &fileName)
{
    atomicfile::makePrivateFolder(QFileInfo(fileName).absolutePath());
    const bool isNew = !QFileInfo::exists(fileName);
    posix::File(fileName, O_RDWR | O_CREAT).makePrivate();
    if (isNew)
        posix::syncFolder(QFileInfo(fileName).absolutePath());
}

} // namespace

MessageStore::MessageStore(const QString &fileName)
    : m_fileName(fileName)
{
    makePrivateFile(fileName);
    m_database = std::make_unique<QueueDatabase>(fileName);
    queuelayout::bringUp(*m_database);
}

void MessageStore::append(const QueueMessage &message)
{
    m_database->run(insertStatement(), messagerow::values(message));
}

int MessageStore::waiting()
{
    QSqlQuery count = m_database->run(u"SELECT sum(messages) FROM counts WHERE "_s + isWaiting);
    return count.next() ? count.value(0).toInt() : 0;
}

QList<QueueMessage> MessageStore::undelivered()
{
    QList<QueueMessage> messages;
    QSqlQuery row = m_database->run(u"SELECT "_s + listed(messagerow::shortColumns())
        + u" FROM messages WHERE state <> 'delivered' ORDER BY number"_s);
    while (row.next())
        messages.append(messageFrom(row));
    return messages;
}

std::optional<QueueMessage> MessageStore::checkOut(qint64 behind)
{
    QueueTransaction transaction(*m_database);
    std::optional<QueueMessage> message;
    {
        QSqlQuery row = m_database->run(u"SELECT "_s + listed(messagerow::columns())
                + u" FROM messages WHERE number > ? AND "_s + isWaiting
                + u" ORDER BY number LIMIT 1"_s,
            {behind});
        if (!row.next())
            return {};
        message = messageFrom(row);
    }
    message->state = MessageState::Sending;
    ++message->attempts;
    m_database->run(u"UPDATE messages SET state = ?, attempts = ? WHERE number = ?"_s,
        {stateName(message->state), message->attempts, message->number});
    transaction.commit();
    return message;
}

void MessageStore::settle(const QueueMessage &message)
{
    m_database->run(u"UPDATE messages SET state = ?, next_attempt = ?, last_error = ?, answer = ? "
                    u"WHERE number = ?"_s,
        {stateName(message.state), messagerow::written(message.nextAttempt),
            messagerow::present(message.lastError), messagerow::present(message.answer),
            message.number});
}

#include "tests/kills/queuebook.h"

#include <QFile>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QUuid>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace kills {

namespace {

[[noreturn]] void fail(const QSqlError &error)
{
    throw std::runtime_error("the queue cannot be read: " + error.text().toStdString());
}

std::vector<Message> messagesIn(const QSqlDatabase &database)
{
    QSqlQuery query(database);
    query.setForwardOnly(true);
    if (!query.exec(u"SELECT id, correlation_id, state, attempts, last_code, last_error, body "
                    u"FROM messages ORDER BY number"_s))
        fail(query.lastError());
    std::vector<Message> messages;
    while (query.next()) {
        int column = 0;
        Message message;
        message.id = query.value(column++).toString();
        message.correlationId = query.value(column++).toString();
        message.state = query.value(column++).toString();
        message.attempts = query.value(column++).toInt();
        message.lastCode = query.value(column++).toInt();
        message.lastError = query.value(column++).toString();
        message.body = query.value(column++).toByteArray();
        messages.push_back(message);
    }
    return messages;
}

} // namespace

std::vector<Message> queueBook(const QString &stateFolder)
{
    const QString file = stateFolder + u"/queue/queue.sqlite"_s;
    if (!QFile::exists(file))
        return {};
    const QString connection = QUuid::createUuid().toString();
    std::vector<Message> messages;
    {
        auto database = QSqlDatabase::addDatabase(u"QSQLITE"_s, connection);
        database.setConnectOptions(u"QSQLITE_OPEN_READONLY;QSQLITE_BUSY_TIMEOUT=10000"_s);
        database.setDatabaseName(file);
        if (!database.open())
            fail(database.lastError());
        messages = messagesIn(database);
    }
    QSqlDatabase::removeDatabase(connection);
    return messages;
}

} // namespace kills

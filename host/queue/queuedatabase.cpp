#include "host/queue/queuedatabase.h"

#include "host/queue/queueerror.h"

#include <QSqlError>
#include <QUuid>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int busyTimeoutMilliseconds = 2000;
const QString synchronousFull = u"2"_s;

/// SQLite's result codes for what is damaged; the upper bits of a code say more about it.
enum ResultCode : int
{
    PrimaryCode = 0xff,
    Corrupt = 11,
    NoDatabase = 26,
};

[[noreturn]] void fail(const QString &what, const QSqlError &error)
{
    const QString text = what + u": " + error.text();
    const int code = error.nativeErrorCode().toInt() & PrimaryCode;
    if (code == Corrupt || code == NoDatabase)
        throw QueueDamaged(text);
    throw StorageError(text);
}

} // namespace

QueueConnection::QueueConnection()
    : m_name(QUuid::createUuid().toString(QUuid::WithoutBraces))
    , m_database(QSqlDatabase::addDatabase(u"QSQLITE"_s, m_name))
{ }

QueueConnection::~QueueConnection()
{
    // The register wants no copy left when it closes a connection.
    m_database = QSqlDatabase();
    QSqlDatabase::removeDatabase(m_name);
}

QueueDatabase::QueueDatabase(const QString &fileName, Use use)
    : m_fileName(fileName)
{
    open(use);
    if (use == Use::Work)
        configure();
}

void QueueDatabase::open(Use use)
{
    m_connection.database().setDatabaseName(m_fileName);
    QString options = u"QSQLITE_BUSY_TIMEOUT=%1"_s.arg(busyTimeoutMilliseconds);
    if (use == Use::Look)
        options += u";QSQLITE_OPEN_READONLY"_s;
    m_connection.database().setConnectOptions(options);
    if (!m_connection.database().open())
        fail(m_fileName + u": the queue cannot be opened, see \"Queue:database\"",
            m_connection.database().lastError());
}

void QueueDatabase::configure()
{
    run(u"PRAGMA journal_mode = WAL"_s);
    run(u"PRAGMA synchronous = FULL"_s);
    if (ask(u"journal_mode"_s) != u"wal"_s || ask(u"synchronous"_s) != synchronousFull)
        throw StorageError(u"%1: the queue's file system cannot keep what is committed; put the "
                           u"file on a local disk by \"Queue:database\""_s.arg(m_fileName));
}

QString QueueDatabase::ask(const QString &pragma)
{
    QSqlQuery answer = run(u"PRAGMA "_s + pragma);
    return answer.next() ? answer.value(0).toString() : QString();
}

QString QueueDatabase::fact(const QString &name)
{
    QSqlQuery found = run(u"SELECT value FROM facts WHERE name = ?"_s, {name});
    return found.next() ? found.value(0).toString() : QString();
}

void QueueDatabase::setFact(const QString &name, const QString &value)
{
    run(u"INSERT INTO facts (name, value) VALUES (?, ?) "
        u"ON CONFLICT (name) DO UPDATE SET value = excluded.value"_s,
        {name, value});
}

QSqlQuery QueueDatabase::run(const QString &statement, const QVariantList &values)
{
    QSqlQuery query(m_connection.database());
    query.setForwardOnly(true);
    bool done = query.prepare(statement);
    for (const QVariant &value : values)
        query.addBindValue(value);
    done = done && query.exec();
    if (!done)
        fail(m_fileName + u": the queue cannot be used", query.lastError());
    return query;
}

QueueTransaction::QueueTransaction(QueueDatabase &database)
    : m_database(database)
{
    m_database.run(u"BEGIN IMMEDIATE"_s);
}

QueueTransaction::~QueueTransaction()
{
    if (m_committed)
        return;
    try {
        m_database.run(u"ROLLBACK"_s);
    } catch (const StorageError &) {
        // Taken back already by the failure that leads here, or by closing the file.
        return;
    }
}

void QueueTransaction::commit()
{
    m_database.run(u"COMMIT"_s);
    m_committed = true;
}

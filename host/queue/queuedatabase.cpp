#include "host/queue/queuedatabase.h"

#include "host/storage/atomicfile.h"
#include "host/storage/posixfile.h"
#include "host/storage/storageerror.h"

#include <QFileInfo>
#include <QSqlError>
#include <QUuid>

#include <fcntl.h>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int schemaVersion = 1;
constexpr int busyTimeoutMilliseconds = 2000;
const QString synchronousFull = u"2"_s;

const QString messagesTable = uR"(
    CREATE TABLE messages (
        number INTEGER PRIMARY KEY AUTOINCREMENT,
        id TEXT NOT NULL UNIQUE,
        queue TEXT NOT NULL,
        remark TEXT NOT NULL,
        url TEXT NOT NULL,
        headers TEXT NOT NULL,
        body BLOB NOT NULL,
        correlation_id TEXT NOT NULL,
        enqueued TEXT NOT NULL,
        attempts INTEGER NOT NULL,
        next_attempt TEXT NOT NULL,
        last_error TEXT NOT NULL,
        state TEXT NOT NULL
            CHECK (state IN ('pending', 'sending', 'delivered', 'refused', 'parked')),
        answer BLOB NOT NULL
    ))"_s;
const QString stateIndex = u"CREATE INDEX messages_by_state ON messages (state, number)"_s;

// The database makes files of its own beside this one and gives them the same mode.
void makePrivateFile(const QString &fileName)
{
    atomicfile::makePrivateFolder(QFileInfo(fileName).absolutePath());
    const bool isNew = !QFileInfo::exists(fileName);
    posix::File(fileName, O_RDWR | O_CREAT).makePrivate();
    if (isNew)
        posix::syncFolder(QFileInfo(fileName).absolutePath());
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

QueueDatabase::QueueDatabase(const QString &fileName)
    : m_fileName(fileName)
{
    makePrivateFile(fileName);
    open();
    configure();
    makeTables();
}

void QueueDatabase::open()
{
    m_connection.database().setDatabaseName(m_fileName);
    m_connection.database().setConnectOptions(
        u"QSQLITE_BUSY_TIMEOUT=%1"_s.arg(busyTimeoutMilliseconds));
    if (!m_connection.database().open())
        throw StorageError(u"%1: the queue cannot be opened: %2; see \"Queue:database\""_s.arg(
            m_fileName, m_connection.database().lastError().text()));
}

void QueueDatabase::configure()
{
    run(u"PRAGMA journal_mode = WAL"_s);
    run(u"PRAGMA synchronous = FULL"_s);
    if (ask(u"journal_mode"_s) != u"wal"_s || ask(u"synchronous"_s) != synchronousFull)
        throw StorageError(u"%1: the queue's file system cannot keep what is committed; put the "
                           u"file on a local disk by \"Queue:database\""_s.arg(m_fileName));
}

void QueueDatabase::makeTables()
{
    QueueTransaction transaction(*this);
    const int version = ask(u"user_version"_s).toInt();
    if (version > schemaVersion)
        throw StorageError(u"%1: the queue was made by a newer version (%2, this one knows %3); "
                           u"install that one"_s.arg(m_fileName)
                               .arg(version)
                               .arg(schemaVersion));
    if (version == schemaVersion)
        return;
    run(messagesTable);
    run(stateIndex);
    run(u"PRAGMA user_version = %1"_s.arg(schemaVersion));
    transaction.commit();
}

QString QueueDatabase::ask(const QString &pragma)
{
    QSqlQuery answer = run(u"PRAGMA "_s + pragma);
    return answer.next() ? answer.value(0).toString() : QString();
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
        throw StorageError(
            u"%1: the queue cannot be used: %2"_s.arg(m_fileName, query.lastError().text()));
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

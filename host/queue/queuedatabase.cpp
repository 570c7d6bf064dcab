#include "host/queue/queuedatabase.h"

#include "host/queue/queueerror.h"
#include "host/queue/server/serverconnection.h"
#include "host/queue/server/statementwatch.h"

#include <QScopeGuard>
#include <QSqlError>
#include <QUuid>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int busyTimeoutMilliseconds = 2000;
constexpr int cacheKilobytes = 512;
const QString synchronousFull = u"2"_s;

/// SQLite's result codes for what is damaged; the upper bits of a code say more about it.
enum ResultCode : int
{
    PrimaryCode = 0xff,
    Corrupt = 11,
    NoDatabase = 26,
};

} // namespace

QueueConnection::QueueConnection(const QString &driver)
    : m_name(QUuid::createUuid().toString(QUuid::WithoutBraces))
    , m_database(QSqlDatabase::addDatabase(driver, m_name))
{ }

QueueConnection::~QueueConnection()
{
    // The register wants no copy left when it closes a connection.
    m_database = QSqlDatabase();
    QSqlDatabase::removeDatabase(m_name);
}

QueueDatabase::QueueDatabase(QString fileName, Use use)
    : m_fileName(std::move(fileName))
    , m_dialect(sqldialect::sqlite())
    , m_connection(m_dialect.driver)
{
    open(use);
    if (use == Use::Work)
        configure();
}

QueueDatabase::QueueDatabase(
    const ServerAddress &address, std::chrono::steady_clock::time_point deadline)
    : m_fileName(address.shown())
    , m_dialect(sqldialect::postgresql())
    , m_connection(m_dialect.driver)
{
    serverconnection::open(m_connection.database(), address, deadline);
    m_watch = std::make_unique<StatementWatch>(serverconnection::socket(m_connection.database()));
    const QueueDeadline bounded(*this, deadline);
    serverconnection::configure(*this);
}

QueueDatabase::~QueueDatabase() = default;

void QueueDatabase::fail(const tr::Tr &what, const QSqlError &error) const
{
    if (m_dialect.isShared())
        throw QueueUnreached(tr::Tr(u"queueServerFailed"_s, u"%1: %2; проверьте сервер и сеть"_s)
                                 .arg(what)
                                 .arg(wasCut() ? serverconnection::notAnsweredInTime()
                                               : serverconnection::shown(error)));
    const tr::Tr text = tr::Tr(tr::undefined, u"%1: %2"_s).arg(what).arg(error.text());
    const int code = error.nativeErrorCode().toInt() & PrimaryCode;
    if (code == Corrupt || code == NoDatabase)
        throw QueueDamaged(text);
    throw StorageError(text);
}

void QueueDatabase::failUsing(const QSqlError &error) const
{
    fail(tr::Tr(u"queueNotUsed"_s, u"%1: очередь недоступна"_s).arg(m_fileName), error);
}

void QueueDatabase::open(Use use)
{
    m_connection.database().setDatabaseName(m_fileName);
    QString options = u"QSQLITE_BUSY_TIMEOUT=%1"_s.arg(busyTimeoutMilliseconds);
    if (use == Use::Look)
        options += u";QSQLITE_OPEN_READONLY"_s;
    m_connection.database().setConnectOptions(options);
    if (!m_connection.database().open())
        fail(tr::Tr(u"queueNotOpened"_s, u"%1: очередь не открывается, см. «Queue:database»"_s)
                 .arg(m_fileName),
            m_connection.database().lastError());
}

void QueueDatabase::configure()
{
    run(u"PRAGMA journal_mode = WAL"_s);
    run(u"PRAGMA synchronous = FULL"_s);
    // Its own limit is two megabytes, which a till that runs for weeks would come to hold.
    run(u"PRAGMA cache_size = -%1"_s.arg(cacheKilobytes));
    if (ask(u"journal_mode"_s) != u"wal"_s || ask(u"synchronous"_s) != synchronousFull)
        throw StorageError(tr::Tr(u"queueFileSystem"_s,
            u"%1: файловая система очереди не хранит записанное надёжно; разместите файл на "
            u"локальном диске через «Queue:database»"_s)
                               .arg(m_fileName));
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

void QueueDatabase::noteFact(const QString &name, const QString &value)
{
    change(m_dialect.noteFact, {value, name});
}

std::chrono::steady_clock::time_point QueueDatabase::soon()
{
    return std::chrono::steady_clock::now() + StatementWatch::limit;
}

bool QueueDatabase::wasCut() const
{
    return m_watch && m_watch->hasCut();
}

int QueueDatabase::change(const QString &statement, const QVariantList &values)
{
    if (m_dialect.isShared())
        return run(statement, values).numRowsAffected();
    auto found = m_changes.find(statement);
    if (found == m_changes.end()) {
        QSqlQuery query(m_connection.database());
        if (!query.prepare(statement))
            failUsing(query.lastError());
        found = m_changes.emplace(statement, std::move(query)).first;
    }
    QSqlQuery &query = found->second;
    // One that failed in the middle may keep values that the next call does not replace.
    auto forget = qScopeGuard([this, found] { m_changes.erase(found); });
    for (int place = 0; place < values.size(); ++place)
        query.bindValue(place, values.at(place));
    if (!query.exec())
        failUsing(query.lastError());
    forget.dismiss();
    return query.numRowsAffected();
}

QSqlQuery QueueDatabase::run(
    const QString &statement, const QVariantList &values, Planning planning)
{
    const StatementWatch::Statement watched(m_watch.get());
    QSqlQuery query(m_connection.database());
    // A server's rows would come one by one then, and no other statement run before the last one.
    query.setForwardOnly(!m_dialect.isShared());
    bool done = true;
    if (m_dialect.isShared()) {
        done = query.exec(execution(statement, values, planning));
    } else {
        done = query.prepare(statement);
        for (const QVariant &value : values)
            query.addBindValue(value);
        done = done && query.exec();
    }
    if (!done)
        failUsing(query.lastError());
    return query;
}

// Prepared once, and then one way to the server and back each time; the driver would make three.
QString QueueDatabase::execution(
    const QString &statement, const QVariantList &values, Planning planning)
{
    if (values.isEmpty())
        return statement;
    if (planning == Planning::EachTime)
        return serverconnection::filled(m_connection.database(), statement, values);
    if (!m_prepared.contains(statement)) {
        const QString name = u"queue_%1"_s.arg(m_prepared.size());
        QSqlQuery query(m_connection.database());
        if (!query.exec(serverconnection::preparation(name, statement)))
            failUsing(query.lastError());
        m_prepared.insert(statement, name);
    }
    return serverconnection::execution(
        m_connection.database(), m_prepared.value(statement), values);
}

QueueDeadline::QueueDeadline(
    QueueDatabase &database, std::chrono::steady_clock::time_point deadline)
    : m_watch(database.m_watch.get())
{
    if (m_watch)
        m_watch->setDeadline(deadline);
}

QueueDeadline::~QueueDeadline()
{
    if (m_watch)
        m_watch->endDeadline();
}

QueueTransaction::QueueTransaction(QueueDatabase &database)
    : m_database(database)
{
    m_database.run(m_database.dialect().begin);
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

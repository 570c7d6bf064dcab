#include "emulator/books/database.h"

#include "emulator/books/tables.h"

#include <QFile>
#include <QSqlError>
#include <QUuid>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

using namespace Qt::Literals::StringLiterals;

namespace emulator {

namespace {

/// SQLite gives its side files the mode of the main file, so making that one first is enough.
void createPrivateFile(const QString &path)
{
    constexpr mode_t ownerOnly = 0600;
    const int descriptor
        = ::open(QFile::encodeName(path).constData(), O_RDWR | O_CREAT | O_CLOEXEC, ownerOnly);
    if (descriptor < 0)
        throw BooksError(
            u"%1: the state file cannot be opened: %2"_s.arg(path, qt_error_string(errno)));
    ::fchmod(descriptor, ownerOnly);
    ::close(descriptor);
}

/// A null QString would be bound as NULL, but to us it is an empty text.
QVariant toBind(const QVariant &value)
{
    const bool isNullText = value.typeId() == QMetaType::QString && value.toString().isNull();
    return isNullText ? QVariant(u""_s) : value;
}

} // namespace

Database::Database(const QString &path)
    : m_path(path)
    , m_connection(QUuid::createUuid().toString())
{
    if (!path.isEmpty())
        createPrivateFile(path);
    m_database = QSqlDatabase::addDatabase(u"QSQLITE"_s, m_connection);
    m_database.setDatabaseName(path.isEmpty() ? u":memory:"_s : path);
    try {
        open();
    } catch (...) {
        m_statements.clear();
        m_database = QSqlDatabase();
        QSqlDatabase::removeDatabase(m_connection);
        throw;
    }
}

Database::~Database()
{
    m_statements.clear();
    m_database = QSqlDatabase();
    QSqlDatabase::removeDatabase(m_connection);
}

void Database::open()
{
    if (!m_database.open())
        fail(m_database.lastError().text());
    change(u"PRAGMA journal_mode = WAL"_s);
    change(u"PRAGMA synchronous = FULL"_s);
    change(u"PRAGMA foreign_keys = ON"_s);
    createTables(*this, m_path);
    m_statements.clear();
}

qint64 Database::change(const QString &sql, const QVariantList &values)
{
    QSqlQuery &query = run(sql, values);
    const qint64 id = query.lastInsertId().toLongLong();
    query.finish();
    return id;
}

QSqlQuery &Database::run(const QString &sql, const QVariantList &values)
{
    QSqlQuery &query = prepared(sql);
    for (qsizetype place = 0; place < values.size(); ++place)
        query.bindValue(static_cast<int>(place), toBind(values.at(place)));
    if (!query.exec())
        fail(query.lastError().text());
    return query;
}

QSqlQuery &Database::prepared(const QString &sql)
{
    const auto known = m_statements.find(sql);
    if (known != m_statements.end())
        return known->second;
    QSqlQuery query(m_database);
    query.setForwardOnly(true);
    if (!query.prepare(sql))
        fail(query.lastError().text());
    return m_statements.emplace(sql, std::move(query)).first->second;
}

void Database::fail(const QString &what) const
{
    throw BooksError(
        u"%1: %2"_s.arg(m_path.isEmpty() ? u"the books"_s : m_path, what.simplified()));
}

BooksTransaction::BooksTransaction(Database &database)
    : m_database(database)
{
    m_database.change(u"BEGIN IMMEDIATE"_s);
}

BooksTransaction::~BooksTransaction()
{
    if (!m_open)
        return;
    try {
        m_database.change(u"ROLLBACK"_s);
    } catch (const BooksError &) {
        // SQLite has already undone everything when a statement failed for good.
    }
}

void BooksTransaction::commit()
{
    m_database.change(u"COMMIT"_s);
    m_open = false;
}

} // namespace emulator

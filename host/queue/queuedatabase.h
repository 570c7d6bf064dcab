#pragma once

#include "host/export.h"
#include "host/framework/tr.h"
#include "host/queue/sqldialect.h"

#include <QHash>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QVariantList>

#include <chrono>
#include <map>
#include <memory>

class StatementWatch;
struct ServerAddress;

/// A connection in Qt's register under a name that is unique in the process, taken out of it with
/// this object.
class POSHOST_EXPORT QueueConnection
{
public:
    /// @param driver Qt's name of it.
    explicit QueueConnection(const QString &driver);
    ~QueueConnection();
    Q_DISABLE_COPY_MOVE(QueueConnection)

    QSqlDatabase &database() { return m_database; }

private:
    QString m_name;
    QSqlDatabase m_database;
};

/// The database of the outgoing queue, opened so that what was committed outlasts a power cut,
/// which is read back after opening: an SQLite file, with a write-ahead log and every commit
/// synced, or a database of a PostgreSQL server that syncs every commit.
///
/// Belongs to the thread that made it; closed with this object. What fails is a `StorageError`,
/// with a damaged file `QueueDamaged`, with a server `QueueUnreached`. Another process's write is
/// waited for, two seconds at most, and so is a server's answer.
class POSHOST_EXPORT QueueDatabase
{
public:
    enum class Use : int
    {
        Work,
        Look, ///< the file and its log stay as they are, whatever is wrong with them
    };

    /// Opens the file, which the database makes where it is missing and to be worked; its tables
    /// are not looked at.
    explicit QueueDatabase(QString fileName, Use use = Use::Work);

    /// Connects to a server until then; its tables are not looked at.
    explicit QueueDatabase(
        const ServerAddress &address, std::chrono::steady_clock::time_point deadline = soon());
    ~QueueDatabase();
    Q_DISABLE_COPY_MOVE(QueueDatabase)

    /// The file, or the address of the server without a password.
    [[nodiscard]] QString fileName() const { return m_fileName; }
    [[nodiscard]] const SqlDialect &dialect() const { return m_dialect; }
    /// When a server chooses how it runs a statement; a file does so each time.
    enum class Planning : int
    {
        Once, ///< for whatever values: the quickest where they make no difference
        EachTime, ///< for these values: where they decide which index leads to few rows
    };
    /// Runs a statement that gives no rows, with its values in the order of their question marks.
    /// It is prepared once: reading it takes longer than what it does to the pages.
    /// @return how many rows it has changed.
    int change(const QString &statement, const QVariantList &values);
    /// Runs one statement with its values in the order of their question marks.
    QSqlQuery run(const QString &statement, const QVariantList &values = {},
        Planning planning = Planning::Once);
    /// The value of a PRAGMA of SQLite.
    [[nodiscard]] QString ask(const QString &pragma);

    /// What is remembered under a name, in the table "facts"; empty when nothing is.
    [[nodiscard]] QString fact(const QString &name);
    void setFact(const QString &name, const QString &value);
    /// The same for what many note at once: one of two values that come together may get lost.
    void noteFact(const QString &name, const QString &value);

    /// When the wait for a server that keeps silent ends, if it begins now: in two seconds.
    [[nodiscard]] static std::chrono::steady_clock::time_point soon();
    /// Whether the connection was cut since a server did not answer in time.
    [[nodiscard]] bool wasCut() const;

private:
    friend class QueueDeadline;

    void open(Use use);
    void configure();
    QString execution(const QString &statement, const QVariantList &values, Planning planning);
    [[noreturn]] void fail(const tr::Tr &what, const QSqlError &error) const;
    [[noreturn]] void failUsing(const QSqlError &error) const;

    QString m_fileName;
    const SqlDialect &m_dialect;
    QueueConnection m_connection;
    QHash<QString, QString> m_prepared; ///< names of statements that a server knows
    std::map<QString, QSqlQuery> m_changes; ///< of a file, prepared; end before the connection
    std::unique_ptr<StatementWatch> m_watch; ///< over a server's answers; null for a file
};

/// Until when a server's answers are waited for, as long as it lives; without it each for two
/// seconds. A file knows none.
class POSHOST_EXPORT QueueDeadline
{
public:
    QueueDeadline(QueueDatabase &database, std::chrono::steady_clock::time_point deadline);
    ~QueueDeadline();
    Q_DISABLE_COPY_MOVE(QueueDeadline)

private:
    StatementWatch *m_watch;
};

/// A transaction, taken back unless committed. In a file it owns the database from its first moment
/// on; on a server others work beside it.
class POSHOST_EXPORT QueueTransaction
{
public:
    explicit QueueTransaction(QueueDatabase &database);
    ~QueueTransaction();
    Q_DISABLE_COPY_MOVE(QueueTransaction)

    void commit();

private:
    QueueDatabase &m_database;
    bool m_committed = false;
};

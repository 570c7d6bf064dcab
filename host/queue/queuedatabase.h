#pragma once

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QVariantList>

/// A connection in Qt's register under a name that is unique in the process, taken out of it with
/// this object.
class QueueConnection
{
public:
    QueueConnection();
    ~QueueConnection();
    Q_DISABLE_COPY_MOVE(QueueConnection)

    QSqlDatabase &database() { return m_database; }

private:
    QString m_name;
    QSqlDatabase m_database;
};

/// The SQLite file of the outgoing queue: made, checked and opened so that what was committed
/// outlasts a power cut.
///
/// Write-ahead log with every commit synced, both read back after opening. Readable by its owner
/// only from the first moment, since the messages hold credentials. Belongs to the thread that made
/// it; closed with this object. What fails is a `StorageError`.
class QueueDatabase
{
public:
    /// Opens the file; makes it, its folder and its tables where they are missing.
    /// @throws StorageError also when the file was made by a newer version.
    explicit QueueDatabase(const QString &fileName);

    /// Runs one statement with its values in the order of their question marks.
    QSqlQuery run(const QString &statement, const QVariantList &values = {});

private:
    void open();
    void configure();
    void makeTables();
    [[nodiscard]] QString ask(const QString &pragma);

    QString m_fileName;
    QueueConnection m_connection;
};

/// A transaction that owns the database from its first moment on; taken back unless committed.
///
/// Never a plain BEGIN: that one takes the write lock only at the first change and then fails at
/// once when another process has changed something meanwhile.
class QueueTransaction
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

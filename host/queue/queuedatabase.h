#pragma once

#include "host/export.h"

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QVariantList>

/// A connection in Qt's register under a name that is unique in the process, taken out of it with
/// this object.
class POSHOST_EXPORT QueueConnection
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

/// The SQLite file of the outgoing queue, opened so that what was committed outlasts a power cut:
/// write-ahead log with every commit synced, both read back after opening.
///
/// Belongs to the thread that made it; closed with this object. What fails is a `StorageError`,
/// with a damaged file `QueueDamaged`. Another process's write is waited for, two seconds at most.
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
    explicit QueueDatabase(const QString &fileName, Use use = Use::Work);

    [[nodiscard]] QString fileName() const { return m_fileName; }
    /// Runs one statement with its values in the order of their question marks.
    QSqlQuery run(const QString &statement, const QVariantList &values = {});
    /// The value of a PRAGMA.
    [[nodiscard]] QString ask(const QString &pragma);

    /// What is remembered under a name, in the table "facts"; empty when nothing is.
    [[nodiscard]] QString fact(const QString &name);
    void setFact(const QString &name, const QString &value);

private:
    void open(Use use);
    void configure();

    QString m_fileName;
    QueueConnection m_connection;
};

/// A transaction that owns the database from its first moment on; taken back unless committed.
///
/// Never a plain BEGIN: that one takes the write lock only at the first change and then fails at
/// once when another process has changed something meanwhile.
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

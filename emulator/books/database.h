#pragma once

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QVariantList>

#include <optional>
#include <stdexcept>
#include <unordered_map>
#include <vector>

namespace emulator {

/// The books cannot be opened, read or written; `what()` is one line with the file's name.
class BooksError : public std::runtime_error
{
public:
    explicit BooksError(const QString &message)
        : std::runtime_error(message.toStdString())
    { }
};

/// One SQLite database with its prepared statements. All operations throw BooksError.
/// Used on the thread that made it; needs a QCoreApplication.
class Database
{
public:
    /// An empty path keeps everything in memory. A file is made readable for its owner only.
    explicit Database(const QString &path);
    ~Database();
    Database(const Database &) = delete;
    Database &operator=(const Database &) = delete;

    /// Changes rows; returns the id of the row inserted last.
    qint64 change(const QString &sql, const QVariantList &values = {});

    /// All rows, each turned into a value by `read(const QSqlQuery &)`.
    template <typename Read>
    auto all(const QString &sql, const QVariantList &values, Read read)
        -> std::vector<decltype(read(std::declval<const QSqlQuery &>()))>
    {
        std::vector<decltype(read(std::declval<const QSqlQuery &>()))> rows;
        QSqlQuery &query = run(sql, values);
        while (query.next())
            rows.push_back(read(query));
        query.finish();
        return rows;
    }

    /// The first row, if there is one.
    template <typename Read>
    auto first(const QString &sql, const QVariantList &values, Read read)
        -> std::optional<decltype(read(std::declval<const QSqlQuery &>()))>
    {
        std::optional<decltype(read(std::declval<const QSqlQuery &>()))> row;
        QSqlQuery &query = run(sql, values);
        if (query.next())
            row = read(query);
        query.finish();
        return row;
    }

private:
    QSqlQuery &run(const QString &sql, const QVariantList &values);
    QSqlQuery &prepared(const QString &sql);
    void open();
    [[noreturn]] void fail(const QString &what) const;

    QString m_path;
    QString m_connection;
    QSqlDatabase m_database;
    std::unordered_map<QString, QSqlQuery> m_statements;
};

/// All or nothing: what was changed since the start is undone unless `commit` was reached.
class BooksTransaction
{
public:
    explicit BooksTransaction(Database &database);
    ~BooksTransaction();
    BooksTransaction(const BooksTransaction &) = delete;
    BooksTransaction &operator=(const BooksTransaction &) = delete;

    void commit();

private:
    Database &m_database;
    bool m_open = true;
};

} // namespace emulator

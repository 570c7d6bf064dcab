#include "emulator/books/tables.h"

#include "emulator/books/database.h"

#include <QStringList>

using namespace Qt::Literals::StringLiterals;

namespace emulator {

namespace {

/// Counts up when the tables change.
constexpr int layoutVersion = 4;

// Amounts are hundredths, stickers among them, quantities thousandths, "at" is UTC milliseconds.
const QStringList &definitions()
{
    static const QStringList statements = {
        u"CREATE TABLE cards (number TEXT PRIMARY KEY, status INTEGER NOT NULL, type TEXT NOT NULL,"
        " holder TEXT NOT NULL, email TEXT NOT NULL, cheques_by_email INTEGER NOT NULL,"
        " attributes TEXT NOT NULL, technical INTEGER NOT NULL)"_s,

        // balance_after is what audit compares with the running sum.
        u"CREATE TABLE ledger (id INTEGER PRIMARY KEY AUTOINCREMENT,"
        " card TEXT NOT NULL REFERENCES cards, account TEXT NOT NULL, kind TEXT NOT NULL,"
        " amount INTEGER NOT NULL, balance_after INTEGER NOT NULL,"
        " transaction_id INTEGER REFERENCES transactions, at INTEGER NOT NULL)"_s,
        u"CREATE INDEX ledger_by_card ON ledger (card, account, id)"_s,
        u"CREATE INDEX ledger_by_transaction ON ledger (transaction_id)"_s,

        u"CREATE TABLE transactions (id INTEGER PRIMARY KEY AUTOINCREMENT, kind TEXT NOT NULL,"
        " organization TEXT NOT NULL, business_unit TEXT NOT NULL, pos TEXT NOT NULL,"
        " number TEXT NOT NULL, card TEXT NOT NULL REFERENCES cards, fingerprint TEXT NOT NULL,"
        " processed TEXT NOT NULL, at INTEGER NOT NULL, sum INTEGER NOT NULL,"
        " sum_discounted INTEGER NOT NULL, sale INTEGER REFERENCES transactions,"
        " rolled_back INTEGER NOT NULL DEFAULT 0, answer BLOB)"_s,
        u"CREATE INDEX transactions_by_cheque ON transactions"
        " (number, pos, business_unit, organization, card)"_s,
        u"CREATE INDEX transactions_by_sale ON transactions (sale)"_s,
        u"CREATE INDEX transactions_by_card ON transactions (card)"_s,

        // Of a sale: what the position earned and spent, and the stickers that it took. Of a
        // return: what was due to be taken back of that and given back, for the sale's position
        // named.
        u"CREATE TABLE positions (transaction_id INTEGER NOT NULL REFERENCES transactions,"
        " number INTEGER NOT NULL, article TEXT NOT NULL, price INTEGER NOT NULL,"
        " quantity INTEGER NOT NULL, sum INTEGER NOT NULL, sum_discounted INTEGER NOT NULL,"
        " earned INTEGER NOT NULL, earned_status INTEGER NOT NULL, spent INTEGER NOT NULL,"
        " stickers INTEGER NOT NULL, sale_position INTEGER)"_s,
        u"CREATE INDEX positions_by_transaction ON positions (transaction_id)"_s,

        u"CREATE TABLE issued_coupons (id INTEGER PRIMARY KEY AUTOINCREMENT,"
        " number TEXT UNIQUE, percent INTEGER, amount INTEGER,"
        " transaction_id INTEGER NOT NULL REFERENCES transactions)"_s,
        u"CREATE TABLE used_coupons (number TEXT NOT NULL,"
        " transaction_id INTEGER NOT NULL REFERENCES transactions)"_s,
        u"CREATE INDEX used_coupons_by_number ON used_coupons (number)"_s,

        u"CREATE TABLE calculations (organization TEXT NOT NULL, business_unit TEXT NOT NULL,"
        " pos TEXT NOT NULL, number TEXT NOT NULL, card TEXT NOT NULL, sum INTEGER NOT NULL,"
        " discount INTEGER NOT NULL, sum_discounted INTEGER NOT NULL, wish INTEGER NOT NULL,"
        " code TEXT NOT NULL, code_at INTEGER NOT NULL, wrong_codes INTEGER NOT NULL DEFAULT 0,"
        " is_over INTEGER NOT NULL DEFAULT 0,"
        " PRIMARY KEY (card, number, pos, business_unit, organization))"_s,
        u"CREATE INDEX calculations_by_till ON calculations (pos, business_unit, organization)"_s,
    };
    return statements;
}

int storedVersion(Database &database)
{
    return database
        .first(
            u"PRAGMA user_version"_s, {}, [](const QSqlQuery &row) { return row.value(0).toInt(); })
        .value_or(0);
}

bool hasTables(Database &database)
{
    return database
        .first(u"SELECT name FROM sqlite_master"_s, {}, [](const QSqlQuery &) { return true; })
        .value_or(false);
}

} // namespace

void createTables(Database &database, const QString &path)
{
    if (storedVersion(database) == layoutVersion)
        return;
    if (hasTables(database))
        throw BooksError(u"%1: these books were made by another program or version; name another"
                         " state file"_s.arg(path));
    BooksTransaction transaction(database);
    for (const QString &statement : definitions())
        database.change(statement);
    database.change(u"PRAGMA user_version = %1"_s.arg(layoutVersion));
    transaction.commit();
}

void clearTables(Database &database)
{
    // Those that refer to others come first.
    for (const QString &table : {u"calculations"_s, u"used_coupons"_s, u"issued_coupons"_s,
             u"positions"_s, u"ledger"_s, u"transactions"_s, u"cards"_s})
        database.change(u"DELETE FROM %1"_s.arg(table));
    database.change(u"DELETE FROM sqlite_sequence"_s);
}

} // namespace emulator

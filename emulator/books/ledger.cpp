#include "emulator/books/ledger.h"

#include "emulator/books/rowvalues.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace emulator {

namespace {

LedgerEntry readEntry(const QSqlQuery &row)
{
    LedgerEntry entry;
    int column = 0;
    entry.id = row.value(column++).toLongLong();
    entry.account = row.value(column++).toString();
    entry.kind = row.value(column++).toString();
    entry.amount = amountIn(row, column++);
    entry.balanceAfter = amountIn(row, column++);
    entry.transaction = row.value(column++).toLongLong();
    entry.at = row.value(column++).toLongLong();
    return entry;
}

} // namespace

QString accountName(Account account)
{
    switch (account) {
    case Account::Active:
        return u"active"_s;
    case Account::Status:
        return u"status"_s;
    case Account::Stickers:
        return u"stickers"_s;
    }
    return {};
}

QString entryKindName(EntryKind kind)
{
    switch (kind) {
    case EntryKind::Opening:
        return u"opening"_s;
    case EntryKind::Earned:
        return u"earned"_s;
    case EntryKind::Spent:
        return u"spent"_s;
    case EntryKind::GivenBack:
        return u"given back"_s;
    case EntryKind::TakenBack:
        return u"taken back"_s;
    case EntryKind::RolledBack:
        return u"rolled back"_s;
    }
    return {};
}

Amount Ledger::balance(const QString &card, Account account) const
{
    return m_database
        .first(u"SELECT balance_after FROM ledger WHERE card = ? AND account = ?"
               " ORDER BY id DESC LIMIT 1"_s,
            {card, accountName(account)}, [](const QSqlQuery &row) { return amountIn(row, 0); })
        .value_or(Amount());
}

Amount Ledger::enter(NewEntry entry)
{
    const Amount before = balance(entry.card, entry.account);
    entry.amount = std::max(entry.amount, -before);
    if (entry.amount == Amount())
        return {};
    m_database.change(
        u"INSERT INTO ledger (card, account, kind, amount, balance_after, transaction_id, at)"
        " VALUES (?, ?, ?, ?, ?, ?, ?)"_s,
        {entry.card, accountName(entry.account), entryKindName(entry.kind),
            entry.amount.hundredths(), (before + entry.amount).hundredths(),
            entry.transaction ? QVariant(entry.transaction) : QVariant(), entry.at});
    return entry.amount;
}

std::vector<LedgerEntry> Ledger::entries(const QString &card) const
{
    return m_database.all(u"SELECT id, account, kind, amount, balance_after, transaction_id, at"
                          " FROM ledger WHERE card = ? ORDER BY id"_s,
        {card}, readEntry);
}

qint64 Ledger::lastId() const
{
    return m_database
        .first(u"SELECT COALESCE(MAX(id), 0) FROM ledger"_s, {},
            [](const QSqlQuery &row) { return row.value(0).toLongLong(); })
        .value_or(0);
}

std::vector<LedgerEntry> Ledger::entriesAfter(qint64 id) const
{
    return m_database.all(u"SELECT id, account, kind, amount, balance_after, transaction_id, at"
                          " FROM ledger WHERE id > ? ORDER BY id"_s,
        {id}, readEntry);
}

Amount Ledger::movedBy(qint64 transaction, Account account) const
{
    return m_database
        .first(u"SELECT COALESCE(SUM(amount), 0) FROM ledger"
               " WHERE transaction_id = ? AND account = ?"_s,
            {transaction, accountName(account)},
            [](const QSqlQuery &row) { return amountIn(row, 0); })
        .value_or(Amount());
}

} // namespace emulator

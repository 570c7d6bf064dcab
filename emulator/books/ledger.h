#pragma once

#include "emulator/amounts/amount.h"
#include "emulator/books/database.h"

namespace emulator {

/// Points that can be spent, points that only count for the holder's status, and stickers, of which
/// there are only whole ones.
enum class Account
{
    Active,
    Status,
    Stickers
};

enum class EntryKind
{
    Opening,
    Earned,
    Spent,
    GivenBack, ///< spent points or stickers of goods that came back
    TakenBack, ///< earned points of goods that came back
    RolledBack
};

QString accountName(Account account); ///< "active", "status", "stickers"
QString entryKindName(EntryKind kind); ///< "opening", "earned", …

struct LedgerEntry
{
    qint64 id = 0;
    QString account;
    QString kind;
    Amount amount;
    Amount balanceAfter;
    qint64 transaction = 0; ///< 0: none
    qint64 at = 0; ///< UTC milliseconds
};

struct NewEntry
{
    QString card;
    Account account = Account::Active;
    EntryKind kind = EntryKind::Opening;
    Amount amount;
    qint64 transaction = 0;
    qint64 at = 0;
};

/// Every movement of points and stickers. A balance is what the entries come to, and never below
/// zero.
class Ledger
{
public:
    explicit Ledger(Database &database) ///< must outlive this object
        : m_database(database)
    { }

    Amount balance(const QString &card, Account account) const;

    /// Books the entry; one of zero is left out. A debit is cut at the balance: points that are
    /// no longer there cannot be taken. Returns what was booked.
    Amount enter(NewEntry entry);

    std::vector<LedgerEntry> entries(const QString &card) const;

    qint64 lastId() const; ///< 0: there is no entry
    std::vector<LedgerEntry> entriesAfter(qint64 id) const;

    /// What a transaction has moved on an account, all its entries together.
    Amount movedBy(qint64 transaction, Account account) const;

private:
    Database &m_database;
};

} // namespace emulator

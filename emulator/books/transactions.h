#pragma once

#include "emulator/amounts/amount.h"
#include "emulator/books/chequekey.h"
#include "emulator/books/database.h"
#include "emulator/rules/returns.h"

#include <QByteArray>
#include <QDate>
#include <QDateTime>

namespace emulator {

enum class TransactionKind
{
    Sale,
    Return
};

QString transactionKindName(TransactionKind kind); ///< "sale", "return"

struct NewTransaction
{
    TransactionKind kind = TransactionKind::Sale;
    ChequeKey cheque;
    QString fingerprint; ///< equal for the same positions
    QDateTime processed; ///< UTC
    Amount sum;
    Amount sumDiscounted;
    qint64 sale = 0; ///< of a return: the sale it belongs to; 0: none
};

struct Transaction
{
    qint64 id = 0;
    QString kind;
    ChequeKey cheque;
    QString fingerprint;
    QString processed; ///< local, ISO 8601
    Amount sum;
    Amount sumDiscounted;
    qint64 sale = 0;
    bool rolledBack = false;
    QByteArray answer;
};

/// A position as it stands in the books.
struct BookedPosition
{
    int number = 0;
    QString article;
    Amount price;
    Quantity quantity;
    Amount sum;
    Amount sumDiscounted;
    Amount earned; ///< of a return: due to be taken back
    Amount earnedStatus;
    Amount spent; ///< of a return: given back
    Amount stickers; ///< whole ones; of a return: given back
    int salePosition = 0; ///< of a return
};

/// Registered sales and returns with their positions.
class Transactions
{
public:
    explicit Transactions(Database &database) ///< must outlive this object
        : m_database(database)
    { }

    qint64 add(const NewTransaction &transaction);
    void addPosition(qint64 transaction, const BookedPosition &position);
    void setAnswer(qint64 transaction, const QByteArray &xml);
    void markRolledBack(qint64 transaction);

    qint64 lastId() const; ///< 0: there is none
    std::optional<Transaction> find(qint64 id) const;

    /// The latest one of this cheque that was registered after `since` (UTC) and not rolled back.
    std::optional<Transaction> findRepeated(
        TransactionKind kind, const ChequeKey &cheque, const QDateTime &since) const;

    /// The latest sale of this cheque that was not rolled back; on that local day when one is
    /// given.
    std::optional<Transaction> findSale(const ChequeKey &cheque, const QDate &day) const;

    bool hasReturns(qint64 sale) const; ///< that were not rolled back

    std::vector<BookedPosition> positions(qint64 transaction) const;

    /// The sale's positions with what its returns have already taken.
    std::vector<SoldPosition> soldPositions(qint64 sale) const;

    /// All of the card, oldest first.
    std::vector<Transaction> ofCard(const QString &card) const;

    /// The latest ones, newest first.
    std::vector<Transaction> latest(int count) const;

private:
    Database &m_database;
};

/// The transaction's id on the wire: ten digits.
QString transactionText(qint64 id);

} // namespace emulator

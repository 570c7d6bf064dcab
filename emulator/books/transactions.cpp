#include "emulator/books/transactions.h"

#include "emulator/books/rowvalues.h"

#include <QHash>

using namespace Qt::Literals::StringLiterals;

namespace emulator {

namespace {

constexpr int transactionDigits = 10;
constexpr int decimalBase = 10;

QString columns()
{
    return u"id, kind, organization, business_unit, pos, number, card, fingerprint, processed,"
           " sum, sum_discounted, sale, rolled_back, answer"_s;
}

QString whereCheque()
{
    return u"number = ? AND pos = ? AND business_unit = ? AND organization = ? AND card = ?"
           " AND kind = ? AND rolled_back = 0"_s;
}

ChequeKey readCheque(const QSqlQuery &row, int &column)
{
    ChequeKey cheque;
    cheque.till.organization = row.value(column++).toString();
    cheque.till.businessUnit = row.value(column++).toString();
    cheque.till.pos = row.value(column++).toString();
    cheque.number = row.value(column++).toString();
    cheque.card = row.value(column++).toString();
    return cheque;
}

Transaction readTransaction(const QSqlQuery &row)
{
    Transaction transaction;
    int column = 0;
    transaction.id = row.value(column++).toLongLong();
    transaction.kind = row.value(column++).toString();
    transaction.cheque = readCheque(row, column);
    transaction.fingerprint = row.value(column++).toString();
    transaction.processed = row.value(column++).toString();
    transaction.sum = amountIn(row, column++);
    transaction.sumDiscounted = amountIn(row, column++);
    transaction.sale = row.value(column++).toLongLong();
    transaction.rolledBack = row.value(column++).toBool();
    transaction.answer = row.value(column++).toByteArray();
    return transaction;
}

BookedPosition readPosition(const QSqlQuery &row)
{
    BookedPosition position;
    int column = 0;
    position.number = row.value(column++).toInt();
    position.article = row.value(column++).toString();
    position.price = amountIn(row, column++);
    position.quantity = quantityIn(row, column++);
    position.sum = amountIn(row, column++);
    position.sumDiscounted = amountIn(row, column++);
    position.earned = amountIn(row, column++);
    position.earnedStatus = amountIn(row, column++);
    position.spent = amountIn(row, column++);
    position.stickers = amountIn(row, column++);
    position.salePosition = row.value(column++).toInt();
    return position;
}

SoldPosition asSold(const BookedPosition &position)
{
    SoldPosition sold;
    sold.number = position.number;
    sold.article = position.article;
    sold.quantity = position.quantity;
    sold.sum = position.sum;
    sold.sumDiscounted = position.sumDiscounted;
    sold.earned = position.earned;
    sold.earnedStatus = position.earnedStatus;
    sold.spent = position.spent;
    sold.stickers = position.stickers;
    return sold;
}

void addReturned(SoldPosition &sold, const BookedPosition &returned)
{
    sold.returned += returned.quantity;
    sold.sumReturned += returned.sum;
    sold.sumDiscountedReturned += returned.sumDiscounted;
    sold.earnedReturned += returned.earned;
    sold.statusReturned += returned.earnedStatus;
    sold.spentReturned += returned.spent;
    sold.stickersReturned += returned.stickers;
}

} // namespace

QString transactionKindName(TransactionKind kind)
{
    return kind == TransactionKind::Sale ? u"sale"_s : u"return"_s;
}

QString transactionText(qint64 id)
{
    return QString::number(id, decimalBase).rightJustified(transactionDigits, u'0');
}

qint64 Transactions::add(const NewTransaction &transaction)
{
    const Till &till = transaction.cheque.till;
    return m_database.change(
        u"INSERT INTO transactions (kind, organization, business_unit, pos, number, card,"
        " fingerprint, processed, at, sum, sum_discounted, sale)"
        " VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"_s,
        {transactionKindName(transaction.kind), till.organization, till.businessUnit, till.pos,
            transaction.cheque.number, transaction.cheque.card, transaction.fingerprint,
            transaction.processed.toLocalTime().toString(u"yyyy-MM-ddThh:mm:ss"_s),
            transaction.processed.toMSecsSinceEpoch(), transaction.sum.hundredths(),
            transaction.sumDiscounted.hundredths(),
            transaction.sale ? QVariant(transaction.sale) : QVariant()});
}

void Transactions::addPosition(qint64 transaction, const BookedPosition &position)
{
    m_database.change(
        u"INSERT INTO positions (transaction_id, number, article, price, quantity, sum,"
        " sum_discounted, earned, earned_status, spent, stickers, sale_position)"
        " VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"_s,
        {transaction, position.number, position.article, position.price.hundredths(),
            position.quantity.thousandths(), position.sum.hundredths(),
            position.sumDiscounted.hundredths(), position.earned.hundredths(),
            position.earnedStatus.hundredths(), position.spent.hundredths(),
            position.stickers.hundredths(), position.salePosition});
}

void Transactions::setAnswer(qint64 transaction, const QByteArray &xml)
{
    m_database.change(u"UPDATE transactions SET answer = ? WHERE id = ?"_s, {xml, transaction});
}

void Transactions::markRolledBack(qint64 transaction)
{
    m_database.change(u"UPDATE transactions SET rolled_back = 1 WHERE id = ?"_s, {transaction});
}

qint64 Transactions::lastId() const
{
    return m_database
        .first(u"SELECT COALESCE(MAX(id), 0) FROM transactions"_s, {},
            [](const QSqlQuery &row) { return row.value(0).toLongLong(); })
        .value_or(0);
}

std::optional<Transaction> Transactions::find(qint64 id) const
{
    return m_database.first(
        u"SELECT %1 FROM transactions WHERE id = ?"_s.arg(columns()), {id}, readTransaction);
}

std::optional<Transaction> Transactions::findRepeated(
    TransactionKind kind, const ChequeKey &cheque, const QDateTime &since) const
{
    return m_database.first(
        u"SELECT %1 FROM transactions WHERE %2 AND at > ? ORDER BY id DESC LIMIT 1"_s.arg(
            columns(), whereCheque()),
        valuesOf(cheque) + QVariantList{transactionKindName(kind), since.toMSecsSinceEpoch()},
        readTransaction);
}

std::optional<Transaction> Transactions::findSale(const ChequeKey &cheque, const QDate &day) const
{
    const QString anyOrThisDay = day.isValid() ? day.toString(Qt::ISODate) + u"T%" : u"%"_s;
    return m_database.first(
        u"SELECT %1 FROM transactions WHERE %2 AND processed LIKE ? ORDER BY id DESC LIMIT 1"_s.arg(
            columns(), whereCheque()),
        valuesOf(cheque) + QVariantList{transactionKindName(TransactionKind::Sale), anyOrThisDay},
        readTransaction);
}

bool Transactions::hasReturns(qint64 sale) const
{
    return m_database
        .first(u"SELECT id FROM transactions WHERE sale = ? AND rolled_back = 0"_s, {sale},
            [](const QSqlQuery &) { return true; })
        .value_or(false);
}

std::vector<BookedPosition> Transactions::positions(qint64 transaction) const
{
    return m_database.all(
        u"SELECT number, article, price, quantity, sum, sum_discounted, earned, earned_status,"
        " spent, stickers, sale_position FROM positions WHERE transaction_id = ? ORDER BY rowid"_s,
        {transaction}, readPosition);
}

std::vector<SoldPosition> Transactions::soldPositions(qint64 sale) const
{
    std::vector<SoldPosition> sold;
    QHash<int, std::size_t> places;
    for (const BookedPosition &position : positions(sale)) {
        places.insert(position.number, sold.size());
        sold.push_back(asSold(position));
    }
    const auto returns
        = m_database.all(u"SELECT id FROM transactions WHERE sale = ? AND rolled_back = 0"_s,
            {sale}, [](const QSqlQuery &row) { return row.value(0).toLongLong(); });
    for (const qint64 id : returns) {
        for (const BookedPosition &returned : positions(id))
            addReturned(sold.at(places.value(returned.salePosition)), returned);
    }
    return sold;
}

std::vector<Transaction> Transactions::ofCard(const QString &card) const
{
    return m_database.all(
        u"SELECT %1 FROM transactions WHERE card = ? ORDER BY id"_s.arg(columns()), {card},
        readTransaction);
}

std::vector<Transaction> Transactions::latest(int count) const
{
    return m_database.all(u"SELECT %1 FROM transactions ORDER BY id DESC LIMIT ?"_s.arg(columns()),
        {count}, readTransaction);
}

} // namespace emulator

#include "emulator/books/calculations.h"

#include "emulator/books/rowvalues.h"

using namespace Qt::Literals::StringLiterals;

namespace emulator {

namespace {

QString whereCheque()
{
    return u"number = ? AND pos = ? AND business_unit = ? AND organization = ? AND card = ?"_s;
}

LastCalculation readCalculation(const QSqlQuery &row)
{
    LastCalculation calculation;
    int column = 0;
    calculation.sum = amountIn(row, column++);
    calculation.discount = amountIn(row, column++);
    calculation.sumDiscounted = amountIn(row, column++);
    calculation.wish = amountIn(row, column++);
    calculation.code = row.value(column++).toString();
    calculation.codeIssued
        = QDateTime::fromMSecsSinceEpoch(row.value(column++).toLongLong(), Qt::UTC);
    calculation.wrongCodes = row.value(column++).toInt();
    calculation.isOver = row.value(column++).toBool();
    return calculation;
}

} // namespace

void Calculations::remember(const ChequeKey &cheque, const LastCalculation &calculation)
{
    m_database.change(
        u"INSERT OR REPLACE INTO calculations (number, pos, business_unit, organization, card,"
        " sum, discount, sum_discounted, wish, code, code_at)"
        " VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"_s,
        valuesOf(cheque)
            + QVariantList{calculation.sum.hundredths(), calculation.discount.hundredths(),
                calculation.sumDiscounted.hundredths(), calculation.wish.hundredths(),
                calculation.code, calculation.codeIssued.toMSecsSinceEpoch()});
    forgetOldest(cheque.till);
}

void Calculations::forgetOldest(const Till &till)
{
    // A code must be known however late its registration comes out of a till's queue.
    const QString ofTill = u"pos = ? AND business_unit = ? AND organization = ? AND code = ''"_s;
    const QVariantList values{till.pos, till.businessUnit, till.organization};
    m_database.change(
        u"DELETE FROM calculations WHERE %1 AND rowid <= (SELECT rowid FROM calculations"
        " WHERE %1 ORDER BY rowid DESC LIMIT 1 OFFSET %2)"_s.arg(ofTill)
            .arg(keptForATill),
        values + values);
}

std::optional<LastCalculation> Calculations::recall(const ChequeKey &cheque) const
{
    return m_database.first(
        u"SELECT sum, discount, sum_discounted, wish, code, code_at, wrong_codes, is_over"
        " FROM calculations WHERE %1"_s.arg(whereCheque()),
        valuesOf(cheque), readCalculation);
}

void Calculations::countWrongCode(const ChequeKey &cheque)
{
    m_database.change(
        u"UPDATE calculations SET wrong_codes = wrong_codes + 1 WHERE %1"_s.arg(whereCheque()),
        valuesOf(cheque));
}

void Calculations::forget(const ChequeKey &cheque)
{
    m_database.change(u"DELETE FROM calculations WHERE %1"_s.arg(whereCheque()), valuesOf(cheque));
}

void Calculations::endAll(const Till &till, const QString &card)
{
    m_database.change(
        u"UPDATE calculations SET is_over = 1 WHERE card = ? AND pos = ? AND business_unit = ?"
        " AND organization = ?"_s,
        {card, till.pos, till.businessUnit, till.organization});
}

std::vector<WaitingCode> Calculations::waitingCodes(const QString &card) const
{
    const QString ofCard = card.isEmpty() ? QString() : u"card = ? AND "_s;
    return m_database.all(u"SELECT card, pos, number, code, code_at, wrong_codes FROM calculations"
                          " WHERE %1code <> '' AND NOT is_over ORDER BY card, number"_s.arg(ofCard),
        card.isEmpty() ? QVariantList() : QVariantList{card}, [](const QSqlQuery &row) {
            int column = 0;
            WaitingCode waiting;
            waiting.card = row.value(column++).toString();
            waiting.pos = row.value(column++).toString();
            waiting.cheque = row.value(column++).toString();
            waiting.code = row.value(column++).toString();
            waiting.issued
                = QDateTime::fromMSecsSinceEpoch(row.value(column++).toLongLong(), Qt::UTC);
            waiting.wrongCodes = row.value(column++).toInt();
            return waiting;
        });
}

} // namespace emulator

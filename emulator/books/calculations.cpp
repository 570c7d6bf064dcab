#include "emulator/books/calculations.h"

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
    calculation.sum = Amount::ofHundredths(row.value(column++).toLongLong());
    calculation.discount = Amount::ofHundredths(row.value(column++).toLongLong());
    calculation.sumDiscounted = Amount::ofHundredths(row.value(column++).toLongLong());
    calculation.wish = Amount::ofHundredths(row.value(column++).toLongLong());
    calculation.code = row.value(column++).toString();
    return calculation;
}

} // namespace

void Calculations::remember(const ChequeKey &cheque, const LastCalculation &calculation)
{
    m_database.change(
        u"INSERT OR REPLACE INTO calculations (number, pos, business_unit, organization, card,"
        " sum, discount, sum_discounted, wish, code) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"_s,
        valuesOf(cheque)
            + QVariantList{calculation.sum.hundredths(), calculation.discount.hundredths(),
                calculation.sumDiscounted.hundredths(), calculation.wish.hundredths(),
                calculation.code});
}

std::optional<LastCalculation> Calculations::recall(const ChequeKey &cheque) const
{
    return m_database.first(
        u"SELECT sum, discount, sum_discounted, wish, code FROM calculations WHERE %1"_s.arg(
            whereCheque()),
        valuesOf(cheque), readCalculation);
}

void Calculations::forget(const ChequeKey &cheque)
{
    m_database.change(u"DELETE FROM calculations WHERE %1"_s.arg(whereCheque()), valuesOf(cheque));
}

std::vector<std::pair<QString, QString>> Calculations::waitingCodes(const QString &card) const
{
    return m_database.all(
        u"SELECT number, code FROM calculations WHERE card = ? AND code <> '' ORDER BY number"_s,
        {card}, [](const QSqlQuery &row) {
            return std::pair(row.value(0).toString(), row.value(1).toString());
        });
}

} // namespace emulator

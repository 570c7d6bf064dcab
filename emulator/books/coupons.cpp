#include "emulator/books/coupons.h"

#include "emulator/books/rowvalues.h"
#include "emulator/rules/couponnumber.h"

using namespace Qt::Literals::StringLiterals;

namespace emulator {

namespace {

QVariant percentValue(const Reduction &reduction)
{
    const Percent *percent = std::get_if<Percent>(&reduction);
    return percent ? QVariant(percent->hundredths()) : QVariant();
}

QVariant amountValue(const Reduction &reduction)
{
    const Amount *amount = std::get_if<Amount>(&reduction);
    return amount ? QVariant(amount->hundredths()) : QVariant();
}

Reduction readReduction(const QSqlQuery &row)
{
    if (row.isNull(0))
        return amountIn(row, 1);
    return Percent::ofHundredths(row.value(0).toLongLong());
}

} // namespace

QString Coupons::issue(const InstantCouponRule &rule, qint64 transaction)
{
    const qint64 sequence = m_database.change(
        u"INSERT INTO issued_coupons (percent, amount, transaction_id) VALUES (?, ?, ?)"_s,
        {percentValue(rule.reduction), amountValue(rule.reduction), transaction});
    QString number = couponNumber(rule.prefix, sequence);
    m_database.change(u"UPDATE issued_coupons SET number = ? WHERE id = ?"_s, {number, sequence});
    return number;
}

std::optional<Reduction> Coupons::findIssued(const QString &number) const
{
    return m_database.first(u"SELECT percent, amount FROM issued_coupons"
                            " JOIN transactions ON transactions.id = transaction_id"
                            " WHERE issued_coupons.number = ? AND rolled_back = 0"_s,
        {number}, readReduction);
}

void Coupons::use(const QString &number, qint64 transaction)
{
    m_database.change(u"INSERT INTO used_coupons (number, transaction_id) VALUES (?, ?)"_s,
        {number, transaction});
}

bool Coupons::isUsed(const QString &number) const
{
    return m_database
        .first(u"SELECT transaction_id FROM used_coupons"
               " JOIN transactions ON transactions.id = transaction_id"
               " WHERE used_coupons.number = ? AND rolled_back = 0"_s,
            {number}, [](const QSqlQuery &) { return true; })
        .value_or(false);
}

} // namespace emulator

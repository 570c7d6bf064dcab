// What the transactions have made of the cards' points.

#include "tests/restart/laws.h"

#include <QMap>

#include <cmath>

using namespace Qt::StringLiterals;

namespace restart::laws {

namespace {

constexpr double tolerance = 0.005;

bool differ(double left, double right)
{
    return std::abs(left - right) >= tolerance;
}

double total(const Json &transaction, const char *figure)
{
    double sum = 0.0;
    for (const Json &position : transaction.at("positions"))
        sum += position.at(figure).get<double>();
    return sum;
}

/// The entries of a card's spendable points, by what they are for.
class PointsLedger
{
public:
    explicit PointsLedger(const Json &card)
    {
        for (const Json &entry : card.at("ledger"))
            if (entry.at("account") == "active")
                m_entries.push_back(&entry);
    }

    /// Entries of that kind for that transaction (null: of none).
    [[nodiscard]] std::vector<double> amounts(const Json &transaction, const char *kind) const
    {
        std::vector<double> amounts;
        for (const Json *entry : m_entries)
            if (entry->at("transaction") == transaction && entry->at("kind") == kind)
                amounts.push_back(entry->at("amount"));
        return amounts;
    }
    [[nodiscard]] double opening() const
    {
        const auto entries = amounts(nullptr, "opening");
        return entries.empty() ? 0.0 : entries.front();
    }

private:
    std::vector<const Json *> m_entries;
};

/// Follows a card through its transactions.
class Account
{
public:
    explicit Account(const Json &card)
        : m_ledger(card)
        , m_number(QString::fromStdString(card.at("number")))
        , m_balance(m_ledger.opening())
    { }

    void follow(const Json &transaction)
    {
        if (transaction.at("kind") == "sale")
            followSale(transaction);
        else
            followReturn(transaction);
    }

    void compareWith(double balance)
    {
        if (differ(m_balance, balance))
            m_wrong.append(u"card %1 has %2 points, its transactions come to %3"_s.arg(m_number)
                               .arg(balance)
                               .arg(m_balance));
    }

    [[nodiscard]] QStringList wrong() const { return m_wrong; }

private:
    void followSale(const Json &sale)
    {
        const double moved = entered(sale, "earned", total(sale, "earned"))
            + entered(sale, "spent", -total(sale, "spent"));
        m_balance += moved;
        if (sale.at("rolledBack").get<bool>())
            m_balance += entered(sale, "rolled back", -moved);
    }

    // Of what was earned only what is still there is taken back.
    void followReturn(const Json &taken)
    {
        m_balance += entered(taken, "given back", total(taken, "spent"));
        for (const double amount : m_ledger.amounts(taken.at("id"), "taken back"))
            m_balance += amount;
    }

    // The expected amount; it stands in the ledger in one entry, and in none when it is 0.
    double entered(const Json &transaction, const char *kind, double expected)
    {
        const auto amounts = m_ledger.amounts(transaction.at("id"), kind);
        const bool isRight = differ(expected, 0.0)
            ? amounts.size() == 1 && !differ(amounts.front(), expected)
            : amounts.empty();
        if (!isRight)
            m_wrong.append(u"card %1: %2 points for transaction %3 are not entered once: %4"_s
                               .arg(m_number, QString::fromLatin1(kind),
                                   QString::fromStdString(transaction.at("id")))
                               .arg(expected));
        return expected;
    }

    PointsLedger m_ledger;
    QString m_number;
    double m_balance;
    QStringList m_wrong;
};

} // namespace

QStringList balancesComeFromTransactions(const Books &books)
{
    QStringList wrong;
    for (const Json &card : books.cards) {
        Account account(card);
        for (const Json &transaction : books.transactions)
            if (transaction.at("card") == card.at("number"))
                account.follow(transaction);
        account.compareWith(card.at("balance"));
        wrong += account.wrong();
    }
    return wrong;
}

} // namespace restart::laws

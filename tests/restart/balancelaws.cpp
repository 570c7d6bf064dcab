// What the transactions have made of the cards' points and stickers.

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

/// What a card keeps: where its entries, its balance and the figures of a position stand.
struct Kept
{
    const char *name; ///< for people
    const char *account; ///< of the entries
    const char *balance; ///< of the card
    const char *earned; ///< of a position; null where nothing is earned
    const char *spent; ///< of a position; of a return's: given back
};

constexpr Kept allKept[] = {{"points", "active", "balance", "earned", "spent"},
    {"stickers", "stickers", "stickers", nullptr, "stickers"}};

/// The entries of a card on one account, by what they are for.
class Entries
{
public:
    Entries(const Json &card, const char *account)
    {
        for (const Json &entry : card.at("ledger"))
            if (entry.at("account") == account)
                m_entries.push_back(&entry);
    }

    /// Amounts of that kind for that transaction (null: of none).
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

/// Follows what a card keeps through its transactions.
class Account
{
public:
    Account(const Json &card, const Kept &kept)
        : m_kept(kept)
        , m_entries(card, kept.account)
        , m_number(QString::fromStdString(card.at("number")))
        , m_balance(m_entries.opening())
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
            m_wrong.append(u"card %1 has %2 %3, its transactions come to %4"_s.arg(m_number)
                               .arg(balance)
                               .arg(QString::fromLatin1(m_kept.name))
                               .arg(m_balance));
    }

    [[nodiscard]] QStringList wrong() const { return m_wrong; }

private:
    void followSale(const Json &sale)
    {
        double moved = entered(sale, "spent", -total(sale, m_kept.spent));
        if (m_kept.earned)
            moved += entered(sale, "earned", total(sale, m_kept.earned));
        m_balance += moved;
        if (sale.at("rolledBack").get<bool>())
            m_balance += entered(sale, "rolled back", -moved);
    }

    // Of what was earned only what is still there is taken back.
    void followReturn(const Json &taken)
    {
        m_balance += entered(taken, "given back", total(taken, m_kept.spent));
        for (const double amount : m_entries.amounts(taken.at("id"), "taken back"))
            m_balance += amount;
    }

    // The expected amount; it stands in the ledger in one entry, and in none when it is 0.
    double entered(const Json &transaction, const char *kind, double expected)
    {
        const auto amounts = m_entries.amounts(transaction.at("id"), kind);
        const bool isRight = differ(expected, 0.0)
            ? amounts.size() == 1 && !differ(amounts.front(), expected)
            : amounts.empty();
        if (!isRight)
            m_wrong.append(
                u"card %1: %2 %3 for transaction %4 are not entered once: %5"_s
                    .arg(m_number, QString::fromLatin1(kind), QString::fromLatin1(m_kept.name),
                        QString::fromStdString(transaction.at("id")))
                    .arg(expected));
        return expected;
    }

    const Kept &m_kept;
    Entries m_entries;
    QString m_number;
    double m_balance;
    QStringList m_wrong;
};

QStringList wrongIn(const Json &card, const Kept &kept, const Json &transactions)
{
    Account account(card, kept);
    for (const Json &transaction : transactions)
        if (transaction.at("card") == card.at("number"))
            account.follow(transaction);
    account.compareWith(card.at(kept.balance));
    return account.wrong();
}

} // namespace

QStringList balancesComeFromTransactions(const Books &books)
{
    QStringList wrong;
    for (const Json &card : books.cards)
        for (const Kept &kept : allKept)
            wrong += wrongIn(card, kept, books.transactions);
    return wrong;
}

} // namespace restart::laws

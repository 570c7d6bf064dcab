// What the till has closed and what the service has booked.

#include "tests/restart/closedcheque.h"
#include "tests/restart/laws.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace restart::laws {

namespace {

// Amounts have two decimals; what differs by less is the same.
constexpr double tolerance = 0.005;

std::vector<ClosedCheque> loyaltyCheques(const Books &books)
{
    std::vector<ClosedCheque> cheques;
    for (const Json &document : books.closed)
        if (const ClosedCheque cheque(document); cheque.hasLoyaltyCard())
            cheques.push_back(cheque);
    return cheques;
}

bool isOf(const ClosedCheque &cheque, const Json &transaction)
{
    return transaction.at("kind") == cheque.kind() && transaction.at("number") == cheque.number()
        && transaction.at("card") == cheque.card();
}

bool counts(const Json &transaction)
{
    return !transaction.at("rolledBack").get<bool>();
}

std::vector<const Json *> bookingsOf(const ClosedCheque &cheque, const Books &books)
{
    std::vector<const Json *> bookings;
    for (const Json &transaction : books.transactions)
        if (counts(transaction) && isOf(cheque, transaction))
            bookings.push_back(&transaction);
    return bookings;
}

bool isClosedAtTill(const Json &transaction, const std::vector<ClosedCheque> &cheques)
{
    return std::any_of(cheques.begin(), cheques.end(),
        [&](const ClosedCheque &cheque) { return isOf(cheque, transaction); });
}

double total(const Json &transaction, const char *figure)
{
    double sum = 0.0;
    for (const Json &position : transaction.at("positions"))
        sum += position.at(figure).get<double>();
    return sum;
}

/// Collects what differs between a cheque and its registration.
class Comparison
{
public:
    explicit Comparison(const ClosedCheque &cheque)
        : m_title(cheque.title())
    { }

    void compare(const QString &what, double atTill, double atService)
    {
        if (std::abs(atTill - atService) >= tolerance)
            differences.append(u"%1: %2 at the till %3, at the service %4"_s.arg(m_title, what)
                                   .arg(atTill)
                                   .arg(atService));
    }

    QStringList differences;

private:
    QString m_title;
};

QStringList differences(const ClosedCheque &sale, const Json &registration)
{
    Comparison comparison(sale);
    comparison.compare(u"points spent"_s, sale.pointsSpent(), total(registration, "spent"));
    // What was delivered later was worked out later, without the till.
    if (sale.operationId().empty())
        return comparison.differences;
    comparison.compare(u"points earned"_s, sale.pointsEarned(), total(registration, "earned"));
    comparison.compare(u"sum after discounts"_s, sale.sumDiscounted(),
        registration.at("sumDiscounted").get<double>());
    if (registration.at("id") != sale.operationId())
        comparison.differences.append(u"%1: it names another registration"_s.arg(sale.title()));
    return comparison.differences;
}

} // namespace

QStringList everythingIsBookedOnce(const Books &books)
{
    QStringList wrong;
    const auto cheques = loyaltyCheques(books);
    for (const ClosedCheque &cheque : cheques)
        if (const auto count = bookingsOf(cheque, books).size(); count != 1)
            wrong.append(u"%1 is booked %2 times"_s.arg(cheque.title()).arg(count));
    for (const Json &transaction : books.transactions)
        if (counts(transaction) && !isClosedAtTill(transaction, cheques))
            wrong.append(u"the service has booked what the till has not closed: %1"_s.arg(
                QString::fromStdString(transaction.dump())));
    return wrong;
}

QStringList figuresAgree(const Books &books)
{
    QStringList wrong;
    for (const ClosedCheque &cheque : loyaltyCheques(books))
        if (cheque.kind() == "sale")
            for (const Json *registration : bookingsOf(cheque, books))
                wrong += differences(cheque, *registration);
    return wrong;
}

} // namespace restart::laws

#include "emulator/books/audit.h"

#include <limits>

using namespace Qt::Literals::StringLiterals;

namespace emulator {

namespace {

void auditCard(const QString &card, const Books &books, AuditReport &report)
{
    QMap<QString, Amount> sums;
    for (const LedgerEntry &entry : books.ledger.entries(card)) {
        ++report.entries;
        Amount &sum = sums[entry.account];
        sum += entry.amount;
        if (sum != entry.balanceAfter)
            report.problems.append(
                u"card %1, entry %2: the entries come to %3, the balance is %4"_s.arg(card)
                    .arg(entry.id)
                    .arg(sum.toString(), entry.balanceAfter.toString()));
        if (entry.balanceAfter < Amount())
            report.problems.append(
                u"card %1, entry %2: the balance %3 is below zero"_s.arg(card).arg(entry.id).arg(
                    entry.balanceAfter.toString()));
    }
}

void auditSale(const Transaction &sale, const Books &books, AuditReport &report)
{
    Amount expected;
    for (const BookedPosition &position : books.transactions.positions(sale.id))
        expected += position.earned - position.spent;
    const Amount moved = books.ledger.movedBy(sale.id, Account::Active);
    if (moved != expected)
        report.problems.append(
            u"transaction %1: its positions come to %2 points, it has moved %3"_s.arg(
                transactionText(sale.id), expected.toString(), moved.toString()));
}

} // namespace

AuditReport audit(const Books &books)
{
    AuditReport report;
    for (const Card &card : books.cards.all()) {
        ++report.cards;
        auditCard(card.number, books, report);
    }
    for (const Transaction &transaction :
        books.transactions.latest(std::numeric_limits<int>::max())) {
        ++report.transactions;
        if (transaction.kind == transactionKindName(TransactionKind::Sale)
            && !transaction.rolledBack)
            auditSale(transaction, books, report);
    }
    return report;
}

} // namespace emulator

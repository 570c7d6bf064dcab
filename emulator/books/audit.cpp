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

void compare(const QString &what, Amount expected, Amount moved, const Transaction &sale,
    AuditReport &report)
{
    if (moved != expected)
        report.problems.append(
            u"transaction %1: its positions come to %2 %3, it has moved %4"_s.arg(
                transactionText(sale.id), expected.toString(), what, moved.toString()));
}

void auditSale(const Transaction &sale, const Books &books, AuditReport &report)
{
    Amount points;
    Amount stickers;
    for (const BookedPosition &position : books.transactions.positions(sale.id)) {
        points += position.earned - position.spent;
        stickers -= position.stickers;
    }
    compare(u"points"_s, points, books.ledger.movedBy(sale.id, Account::Active), sale, report);
    compare(
        u"stickers"_s, stickers, books.ledger.movedBy(sale.id, Account::Stickers), sale, report);
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

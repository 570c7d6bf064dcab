#include "emulator/books/audit.h"

using namespace Qt::Literals::StringLiterals;

namespace emulator {

namespace {

void auditLedger(const QString &card, const Books &books, AuditReport &report)
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

/// What the positions of a transaction come to.
struct Totals
{
    Amount earned;
    Amount earnedStatus;
    Amount spent;
    Amount stickers;
};

Totals totalsOf(const Transaction &transaction, const Books &books)
{
    Totals totals;
    for (const BookedPosition &position : books.transactions.positions(transaction.id)) {
        totals.earned += position.earned;
        totals.earnedStatus += position.earnedStatus;
        totals.spent += position.spent;
        totals.stickers += position.stickers;
    }
    return totals;
}

/// Looks at the accounts of one transaction, one after the other.
class Movements
{
public:
    Movements(const Transaction &transaction, const Books &books, AuditReport &report)
        : m_transaction(transaction)
        , m_books(books)
        , m_report(report)
    { }

    void expect(Account account, Amount least, Amount most) const
    {
        const Amount moved = m_books.ledger.movedBy(m_transaction.id, account);
        if (least <= moved && moved <= most)
            return;
        const QString expected = least == most
            ? least.toString()
            : QString(least.toString() + u" to "_s + most.toString());
        m_report.problems.append(
            u"transaction %1: its positions come to %2 on the account \"%3\", it has moved %4"_s
                .arg(transactionText(m_transaction.id), expected, accountName(account),
                    moved.toString()));
    }

    void expect(Account account, Amount amount) const { expect(account, amount, amount); }

    void expectNothingTaken(Account account) const
    {
        if (m_books.ledger.movedBy(m_transaction.id, account) < Amount())
            m_report.problems.append(
                u"transaction %1: it was rolled back and has still taken from the account \"%2\""_s
                    .arg(transactionText(m_transaction.id), accountName(account)));
    }

private:
    const Transaction &m_transaction;
    const Books &m_books;
    AuditReport &m_report;
};

bool isWithinSale(const SoldPosition &sold)
{
    return sold.returned <= sold.quantity && sold.sumReturned <= sold.sum
        && sold.sumDiscountedReturned <= sold.sumDiscounted && sold.earnedReturned <= sold.earned
        && sold.statusReturned <= sold.earnedStatus && sold.spentReturned <= sold.spent
        && sold.stickersReturned <= sold.stickers;
}

void auditSale(const Transaction &sale, const Books &books, AuditReport &report)
{
    const Totals totals = totalsOf(sale, books);
    const Movements movements(sale, books, report);
    movements.expect(Account::Active, totals.earned - totals.spent);
    movements.expect(Account::Status, totals.earnedStatus);
    movements.expect(Account::Stickers, -totals.stickers);
    for (const SoldPosition &sold : books.transactions.soldPositions(sale.id)) {
        if (!isWithinSale(sold))
            report.problems.append(
                u"transaction %1, position %2: more has come back than was sold"_s
                    .arg(transactionText(sale.id))
                    .arg(sold.number));
    }
}

/// Points that the holder has spent meanwhile could not be taken back.
void auditReturn(const Transaction &transaction, const Books &books, AuditReport &report)
{
    const Totals totals = totalsOf(transaction, books);
    const Movements movements(transaction, books, report);
    movements.expect(Account::Active, totals.spent - totals.earned, totals.spent);
    movements.expect(Account::Status, -totals.earnedStatus, Amount());
    movements.expect(Account::Stickers, totals.stickers);
}

void auditRolledBack(const Transaction &transaction, const Books &books, AuditReport &report)
{
    const Movements movements(transaction, books, report);
    for (const Account account : {Account::Active, Account::Status, Account::Stickers})
        movements.expectNothingTaken(account);
}

void auditTransaction(const Transaction &transaction, const Books &books, AuditReport &report)
{
    if (transaction.rolledBack)
        auditRolledBack(transaction, books, report);
    else if (transaction.kind == transactionKindName(TransactionKind::Sale))
        auditSale(transaction, books, report);
    else
        auditReturn(transaction, books, report);
}

void auditInto(AuditReport &report, const Books &books, const QString &card)
{
    ++report.cards;
    auditLedger(card, books, report);
    for (const Transaction &transaction : books.transactions.ofCard(card)) {
        ++report.transactions;
        auditTransaction(transaction, books, report);
    }
}

} // namespace

AuditReport audit(const Books &books)
{
    AuditReport report;
    for (const Card &card : books.cards.all())
        auditInto(report, books, card.number);
    return report;
}

AuditReport auditCard(const Books &books, const QString &card)
{
    AuditReport report;
    auditInto(report, books, card);
    return report;
}

} // namespace emulator

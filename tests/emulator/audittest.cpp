#include "emulator/books/audit.h"

#include "emulator/books/books.h"
#include "tests/emulator/support/requests.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;
using testing::ElementsAre;

namespace emulator {
namespace {

class AuditTest : public testing::Test
{
protected:
    AuditTest()
    {
        Card card;
        card.number = u"1"_s;
        books.cards.put(card);
        books.ledger.enter({u"1"_s, Account::Active, EntryKind::Opening, amount("10.00"), 0, 0});
    }

    qint64 givenSale(const char *earned, const char *stickers = "0.00")
    {
        NewTransaction sale;
        sale.cheque.card = u"1"_s;
        const qint64 id = books.transactions.add(sale);
        BookedPosition position;
        position.earned = amount(earned);
        position.stickers = amount(stickers);
        books.transactions.addPosition(id, position);
        return id;
    }

    static NewTransaction returnFor(qint64 sale)
    {
        NewTransaction returning;
        returning.kind = TransactionKind::Return;
        returning.cheque.card = u"1"_s;
        returning.sale = sale;
        return returning;
    }

    qint64 givenReturn(const char *takeBack, const char *giveBack, qint64 sale = 0)
    {
        const qint64 id = books.transactions.add(returnFor(sale));
        BookedPosition position;
        position.earned = amount(takeBack);
        position.spent = amount(giveBack);
        books.transactions.addPosition(id, position);
        return id;
    }

    QStringList whenAudited() { return audit(books).problems; }

    Database database{QString()};
    Books books{database};
};

TEST_F(AuditTest, FindsBooksInOrder)
{
    const qint64 sale = givenSale("2.00");
    books.ledger.enter({u"1"_s, Account::Active, EntryKind::Earned, amount("2.00"), sale, 0});
    const AuditReport report = audit(books);
    EXPECT_THAT(report.problems, testing::IsEmpty());
    EXPECT_EQ(report.cards, 1);
    EXPECT_EQ(report.entries, 2);
    EXPECT_EQ(report.transactions, 1);
}

TEST_F(AuditTest, FindsABalanceThatTheEntriesDoNotComeTo)
{
    database.change(u"UPDATE ledger SET balance_after = 1100"_s);
    EXPECT_THAT(whenAudited(),
        ElementsAre(u"card 1, entry 1: the entries come to 10.00, the balance is 11.00"_s));
}

TEST_F(AuditTest, FindsABalanceBelowZero)
{
    database.change(u"UPDATE ledger SET amount = -1, balance_after = -1"_s);
    EXPECT_THAT(whenAudited(), ElementsAre(u"card 1, entry 1: the balance -0.01 is below zero"_s));
}

TEST_F(AuditTest, FindsASaleThatMovedOtherPointsThanItsPositions)
{
    const qint64 sale = givenSale("2.00");
    books.ledger.enter({u"1"_s, Account::Active, EntryKind::Earned, amount("2.01"), sale, 0});
    EXPECT_THAT(whenAudited(),
        ElementsAre(
            u"transaction 0000000001: its positions come to 2.00 on the account \"active\", it has moved 2.01"_s));
}

TEST_F(AuditTest, FindsTheStickersOfASaleInOrder)
{
    const qint64 sale = givenSale("0.00", "6.00");
    books.ledger.enter({u"1"_s, Account::Stickers, EntryKind::Opening, amount("10.00"), 0, 0});
    books.ledger.enter({u"1"_s, Account::Stickers, EntryKind::Spent, amount("-6.00"), sale, 0});
    EXPECT_THAT(whenAudited(), testing::IsEmpty());
}

TEST_F(AuditTest, FindsASaleWhosePositionsWereTamperedWith)
{
    const qint64 sale = givenSale("0.00", "6.00");
    books.ledger.enter({u"1"_s, Account::Stickers, EntryKind::Opening, amount("10.00"), 0, 0});
    books.ledger.enter({u"1"_s, Account::Stickers, EntryKind::Spent, amount("-6.00"), sale, 0});
    database.change(u"UPDATE positions SET stickers = 500"_s);
    EXPECT_THAT(whenAudited(),
        ElementsAre(
            u"transaction 0000000001: its positions come to -5.00 on the account \"stickers\", it has moved -6.00"_s));
}

TEST_F(AuditTest, FindsAStickerBalanceThatTheEntriesDoNotComeTo)
{
    books.ledger.enter({u"1"_s, Account::Stickers, EntryKind::Opening, amount("10.00"), 0, 0});
    database.change(u"UPDATE ledger SET amount = 900 WHERE account = 'stickers'"_s);
    EXPECT_THAT(whenAudited(),
        ElementsAre(u"card 1, entry 2: the entries come to 9.00, the balance is 10.00"_s));
}

TEST_F(AuditTest, FindsStatusPointsThatNoPositionEarned)
{
    const qint64 sale = givenSale("0.00");
    books.ledger.enter({u"1"_s, Account::Status, EntryKind::Earned, amount("0.01"), sale, 0});
    EXPECT_THAT(whenAudited(),
        ElementsAre(
            u"transaction 0000000001: its positions come to 0.00 on the account \"status\", it has moved 0.01"_s));
}

TEST_F(AuditTest, FindsAReturnThatGaveOtherThanItsPositionsSay)
{
    const qint64 returning = givenReturn("1.00", "3.00");
    for (const char *moved : {"1.99", "3.01"}) {
        books.ledger.enter(
            {u"1"_s, Account::Active, EntryKind::GivenBack, amount(moved), returning, 0});
        EXPECT_THAT(whenAudited(),
            ElementsAre(
                u"transaction 0000000001: its positions come to 2.00 to 3.00 on the account \"active\", it has moved "_s
                + QString::fromLatin1(moved)));
        books.ledger.enter(
            {u"1"_s, Account::Active, EntryKind::GivenBack, -amount(moved), returning, 0});
    }
    books.ledger.enter(
        {u"1"_s, Account::Active, EntryKind::GivenBack, amount("3.00"), returning, 0});
    EXPECT_THAT(whenAudited(), testing::IsEmpty()) << "points that were spent cannot be taken";
    books.ledger.enter(
        {u"1"_s, Account::Active, EntryKind::TakenBack, amount("-1.00"), returning, 0});
    EXPECT_THAT(whenAudited(), testing::IsEmpty());
    books.ledger.enter(
        {u"1"_s, Account::Status, EntryKind::GivenBack, amount("0.01"), returning, 0});
    books.ledger.enter(
        {u"1"_s, Account::Stickers, EntryKind::GivenBack, amount("1.00"), returning, 0});
    EXPECT_EQ(whenAudited().size(), 2);
}

TEST_F(AuditTest, FindsWhatARollbackHasLeftTaken)
{
    const qint64 sale = givenSale("0.00");
    books.ledger.enter({u"1"_s, Account::Active, EntryKind::Spent, amount("-0.01"), sale, 0});
    books.transactions.markRolledBack(sale);
    EXPECT_THAT(whenAudited(),
        ElementsAre(
            u"transaction 0000000001: it was rolled back and has still taken from the account \"active\""_s));
}

struct TooMuch
{
    const char *name;
    Amount BookedPosition::*figure;
};

TEST_F(AuditTest, FindsMoreComingBackThanWasSold)
{
    const TooMuch table[]
        = {{"sum", &BookedPosition::sum}, {"sum discounted", &BookedPosition::sumDiscounted},
            {"earned", &BookedPosition::earned}, {"status", &BookedPosition::earnedStatus},
            {"spent", &BookedPosition::spent}, {"stickers", &BookedPosition::stickers}};
    const qint64 sale = givenSale("0.00");
    const qint64 returning = givenReturn("0.00", "0.00", sale);
    EXPECT_THAT(whenAudited(), testing::IsEmpty());
    database.change(
        u"UPDATE positions SET quantity = 1 WHERE transaction_id = %1"_s.arg(returning));
    EXPECT_THAT(whenAudited(),
        ElementsAre(u"transaction 0000000001, position 0: more has come back than was sold"_s));
    database.change(u"UPDATE positions SET quantity = 0"_s);
    for (const TooMuch &row : table) {
        SCOPED_TRACE(row.name);
        BookedPosition position;
        position.*row.figure = amount("0.01");
        const qint64 other = books.transactions.add(returnFor(sale));
        books.transactions.addPosition(other, position);
        EXPECT_THAT(whenAudited(),
            testing::Contains(
                u"transaction 0000000001, position 0: more has come back than was sold"_s));
        books.transactions.markRolledBack(other);
        EXPECT_THAT(whenAudited(), testing::IsEmpty());
    }
}

TEST_F(AuditTest, OfOneCardLooksAtNoOther)
{
    Card other;
    other.number = u"2"_s;
    books.cards.put(other);
    const qint64 sale = givenSale("2.00");
    EXPECT_THAT(auditCard(books, u"2"_s).problems, testing::IsEmpty());
    EXPECT_EQ(auditCard(books, u"1"_s).problems.size(), 1);
    EXPECT_EQ(auditCard(books, u"1"_s).transactions, static_cast<int>(sale));
}

TEST_F(AuditTest, LeavesRolledBackSalesAlone)
{
    books.transactions.markRolledBack(givenSale("2.00"));
    EXPECT_THAT(whenAudited(), testing::IsEmpty());
}

TEST(Ledger, CutsADebitAtTheBalance)
{
    Database database{QString()};
    Books books{database};
    books.cards.put({u"1"_s, 2, {}, {}, {}, false, {}, false});
    books.ledger.enter({u"1"_s, Account::Active, EntryKind::Opening, amount("10.00"), 0, 0});
    EXPECT_EQ(
        books.ledger.enter({u"1"_s, Account::Active, EntryKind::TakenBack, amount("-10.01"), 0, 0}),
        amount("-10.00"));
    EXPECT_EQ(books.ledger.balance(u"1"_s, Account::Active), Amount());
}

} // namespace
} // namespace emulator

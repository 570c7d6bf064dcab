#include "tests/emulator/support/desktest.h"
#include "tests/emulator/support/xmltree.h"

using namespace Qt::Literals::StringLiterals;

namespace emulator {
namespace {

class RepeatsTest : public DeskTest
{
protected:
    static SaleRequest cheque(const QString &number = u"17"_s)
    {
        return offlineFiscal(number, {{"1001", "100.00", "1.000"}, {"1002", "50.00", "2.000"}});
    }

    QByteArray whenRegistered(const SaleRequest &sale) { return writeAnswer(desk().answer(sale)); }

    void whenDaysPass(int days) { now = now.addDays(days); }
};

TEST_F(RepeatsTest, GetTheFirstAnswerAndAreCountedOnce)
{
    const QByteArray first = whenRegistered(cheque());
    EXPECT_EQ(whenRepeated(cheque()), first);
    EXPECT_EQ(transactionCount(), 1u);
    thenBalanceIs("510.00");
}

TEST_F(RepeatsTest, NeedNoConfirmationAndMayCarryOtherSums)
{
    data.spending.confirmAbove = Amount();
    SaleRequest soft = cheque();
    soft.fiscal = false;
    SaleRequest request = nextSoft(soft, whenAccepted(soft), amount("40.00"));
    request.confirmation = Confirmation{true, true, {}};
    const ChequeFigures asked = whenAccepted(request);
    SaleRequest confirmed = fiscal(soft, asked, amount("40.00"));
    confirmed.confirmation = Confirmation{true, false, asked.verificationCode};
    const QByteArray first = whenRegistered(confirmed);
    EXPECT_EQ(whenRepeated(cheque()), first);
}

TEST_F(RepeatsTest, AreKnownByTheirPositionsInAnyOrder)
{
    whenRegistered(cheque());
    SaleRequest turned = cheque();
    std::swap(turned.positions[0], turned.positions[1]);
    whenRepeated(turned);
}

TEST_F(RepeatsTest, WithOtherPositionsAreRefused)
{
    whenRegistered(cheque());
    std::vector<SaleRequest> others(5, cheque());
    others[0].positions[0].quantity = quantity("2.000");
    others[1].positions[0].price = amount("100.01");
    others[2].positions[0].article = u"1003"_s;
    others[3].positions[0].number = 3;
    others[4].positions.pop_back();
    for (const SaleRequest &other : others)
        thenRefused(other, returncodes::otherPositions);
    thenBalanceIs("510.00");
}

TEST_F(RepeatsTest, AreToldApartByNumberTillAndCard)
{
    givenCard("24", "0.00");
    whenRegistered(cheque());
    std::vector<SaleRequest> others(5, cheque());
    others[0].number = u"18"_s;
    others[1].till.pos = u"2"_s;
    others[2].till.businessUnit = u"2"_s;
    others[3].till.organization = u"2"_s;
    others[4].card = u"24"_s;
    for (const SaleRequest &other : others)
        whenAccepted(other);
    EXPECT_EQ(transactionCount(), 6u);
}

TEST_F(RepeatsTest, AreKnownForSevenDays)
{
    whenRegistered(cheque());
    whenDaysPass(7);
    now = now.addMSecs(-1);
    whenRepeated(cheque());
}

TEST_F(RepeatsTest, AfterSevenDaysAreANewCheque)
{
    whenRegistered(cheque());
    whenDaysPass(7);
    EXPECT_EQ(whenAccepted(cheque()).transaction, u"0000000002");
    thenBalanceIs("520.00");
}

TEST_F(RepeatsTest, AreKnownAcrossMidnight)
{
    now = QDateTime(QDate(2024, 12, 31), QTime(23, 59, 59), Qt::UTC);
    whenRegistered(cheque());
    now = now.addSecs(2);
    whenRepeated(cheque());
}

TEST_F(RepeatsTest, AreKnownAfterTheClockWasSetBack)
{
    whenRegistered(cheque());
    whenDaysPass(-30);
    whenRepeated(cheque());
}

TEST_F(RepeatsTest, AfterARollbackAreANewCheque)
{
    const ChequeFigures first = whenAccepted(cheque());
    whenAccepted(RollbackRequest{{}, QString::fromLatin1(testCard), first.transaction});
    SaleRequest other = cheque();
    other.positions.pop_back();
    EXPECT_EQ(whenAccepted(other).transaction, u"0000000002");
    thenBalanceIs("505.00");
}

TEST_F(RepeatsTest, OfReturnsAreCountedOnceToo)
{
    whenRegistered(cheque());
    const ReturnRequest returning = returnOf(u"17"_s, u"18"_s, {{"1001", "100.00", "1.000"}});
    whenAccepted(returning);
    whenRepeated(returning);
    thenBalanceIs("505.00");
}

TEST_F(RepeatsTest, OfAReturnForAnotherSaleAreRefused)
{
    whenRegistered(cheque());
    whenRegistered(cheque(u"19"_s));
    whenAccepted(returnOf(u"17"_s, u"18"_s, {{"1001", "100.00", "1.000"}}));
    thenRefused(
        returnOf(u"19"_s, u"18"_s, {{"1001", "100.00", "1.000"}}), returncodes::otherPositions);
}

TEST_F(RepeatsTest, AreNotConfusedWithAReturnOfTheSameNumber)
{
    whenRegistered(cheque());
    whenAccepted(returnOf(u"17"_s, u"17"_s, {{"1001", "100.00", "1.000"}}));
    EXPECT_EQ(transactionCount(), 2u);
}

} // namespace
} // namespace emulator

#include "tests/emulator/support/desktest.h"

using namespace Qt::Literals::StringLiterals;

namespace emulator {
namespace {

class PointsTest : public DeskTest
{
protected:
    PointsTest()
        : sale(firstSoft(u"17"_s, {{"1001", "100.00", "1.000"}, {"1002", "50.00", "1.000"}}))
    { }

    SaleRequest sale;
};

TEST_F(PointsTest, AreOfferedUpToTheShareOfTheCheque)
{
    EXPECT_EQ(whenAccepted(sale).available, amount("75.00"));
}

TEST_F(PointsTest, AskedForAreSpreadOverThePositions)
{
    const ChequeFigures soft = whenAccepted(sale);
    const ChequeFigures figures = whenAccepted(nextSoft(sale, soft, amount("10.00")));
    EXPECT_EQ(figures.spent, amount("10.00"));
    EXPECT_EQ(figures.positions[0].spent, amount("6.67"));
    EXPECT_EQ(figures.positions[1].spent, amount("3.33"));
    thenBalanceIs("500.00");
}

TEST_F(PointsTest, LowerWhatTheChequeEarnsButNotItsSum)
{
    const ChequeFigures soft = whenAccepted(sale);
    const ChequeFigures figures = whenAccepted(nextSoft(sale, soft, amount("50.00")));
    EXPECT_EQ(figures.sumDiscounted, amount("150.00"));
    EXPECT_EQ(figures.earned, amount("5.00"));
}

TEST_F(PointsTest, AreWrittenOffWhenTheChequeIsRegistered)
{
    const ChequeFigures soft = whenAccepted(sale);
    const ChequeFigures wish = whenAccepted(nextSoft(sale, soft, amount("50.00")));
    const ChequeFigures figures = whenAccepted(fiscal(sale, wish, amount("50.00")));
    EXPECT_EQ(figures.spent, amount("50.00"));
    EXPECT_EQ(figures.balance, amount("455.00"));
    thenBalanceIs("455.00");
}

TEST_F(PointsTest, BeyondWhatIsAvailableAreRefusedWithAllFigures)
{
    const ChequeFigures soft = whenAccepted(sale);
    const ChequeAnswer answer = whenAnswered(nextSoft(sale, soft, amount("75.01")));
    EXPECT_EQ(answer.outcome.code, returncodes::notEnoughPoints);
    ASSERT_TRUE(answer.figures);
    EXPECT_EQ(answer.figures->available, amount("75.00"));
    EXPECT_EQ(answer.figures->balance, amount("500.00"));
    EXPECT_EQ(answer.figures->sumDiscounted, amount("150.00"));
    EXPECT_EQ(answer.figures->spent, Amount());
    EXPECT_EQ(answer.figures->positions.size(), 2u);
}

TEST_F(PointsTest, BeyondWhatIsAvailableRegisterNothing)
{
    const ChequeFigures soft = whenAccepted(sale);
    const ChequeAnswer answer = whenAnswered(fiscal(sale, soft, amount("75.01")));
    EXPECT_EQ(answer.outcome.code, returncodes::notEnoughPoints);
    EXPECT_TRUE(answer.figures);
    EXPECT_EQ(transactionCount(), 0u);
    thenBalanceIs("500.00");
}

TEST_F(PointsTest, MayPayForTheWholeCheque)
{
    data.spending.share = Percent::ofHundredths(10000);
    const ChequeFigures soft = whenAccepted(sale);
    EXPECT_EQ(soft.spent, Amount()) << "the first calculation asks for nothing";
    const ChequeFigures wish = whenAccepted(nextSoft(sale, soft, amount("150.00")));
    EXPECT_EQ(wish.spent, amount("150.00"));
    whenAccepted(fiscal(sale, wish, amount("150.00")));
    thenBalanceIs("350.00");
}

TEST_F(PointsTest, AreKeptWhenTheFirstAnswerWasLostAndTheChequeComesFromTheQueue)
{
    data.spending.share = Percent::ofHundredths(10000);
    whenAccepted(sale); // its answer never arrived
    SaleRequest queued = sale;
    queued.fiscal = true;
    EXPECT_EQ(whenAccepted(queued).spent, Amount());
    thenBalanceIs("507.50");
}

TEST_F(PointsTest, AreKeptWhenACancelledChequesNumberIsUsedAgain)
{
    data.spending.share = Percent::ofHundredths(10000);
    whenAccepted(sale); // cancelled at the till
    const ChequeFigures other = whenAccepted(firstSoft(u"17"_s, {{"1003", "10.00", "1.000"}}));
    EXPECT_EQ(other.spent, Amount());
}

TEST_F(PointsTest, AreKeptWhenACancelledChequeIsSoldAgainAsItWas)
{
    data.spending.share = Percent::ofHundredths(10000);
    whenAccepted(sale); // cancelled at the till
    desk().answer(BalanceRequest{sale.till, sale.card});
    EXPECT_EQ(whenAccepted(sale).spent, Amount());
}

TEST_F(PointsTest, ThatPaidForAllOfAChequeAreSpentWhenItComesFromTheQueueAfterTheNextOne)
{
    data.spending.share = Percent::ofHundredths(10000);
    const ChequeFigures soft = whenAccepted(sale);
    const ChequeFigures paid = whenAccepted(nextSoft(sale, soft, soft.sumDiscounted));
    desk().answer(BalanceRequest{sale.till, sale.card});
    EXPECT_EQ(whenAccepted(fiscal(sale, paid, paid.sumDiscounted)).spent, soft.sumDiscounted);
}

TEST_F(PointsTest, AreNotForgottenWhenTheCardIsPresentedElsewhere)
{
    data.spending.share = Percent::ofHundredths(10000);
    givenCard("24", "0.00");
    const ChequeFigures soft = whenAccepted(sale);
    Till other = sale.till;
    other.pos = u"2"_s;
    desk().answer(BalanceRequest{other, sale.card});
    desk().answer(BalanceRequest{sale.till, u"24"_s});
    EXPECT_EQ(whenAccepted(nextSoft(sale, soft, amount("150.00"))).spent, amount("150.00"));
}

} // namespace
} // namespace emulator

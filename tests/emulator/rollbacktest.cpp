#include "tests/emulator/support/desktest.h"

using namespace Qt::Literals::StringLiterals;

namespace emulator {
namespace {

class RollbackTest : public DeskTest
{
protected:
    RollbackTest()
        : sale(firstSoft(u"17"_s, {{"1001", "100.00", "1.000"}}))
    { }

    ChequeFigures givenSale(const char *points)
    {
        return whenAccepted(fiscal(sale, whenAccepted(sale), amount(points)));
    }

    static RollbackRequest rollbackOf(const ChequeFigures &figures)
    {
        return {{}, QString::fromLatin1(testCard), figures.transaction};
    }

    SaleRequest sale;
};

TEST_F(RollbackTest, PutsTheCardBack)
{
    const ChequeFigures sold = givenSale("40.00");
    thenBalanceIs("463.00");
    const ChequeFigures figures = whenAccepted(rollbackOf(sold));
    EXPECT_EQ(figures.balance, amount("500.00"));
    EXPECT_EQ(figures.earned, amount("37.00"));
    EXPECT_EQ(figures.spent, Amount());
    EXPECT_EQ(figures.transaction, sold.transaction);
    thenBalanceIs("500.00");
}

TEST_F(RollbackTest, TakesBackWhatWasEarned)
{
    const ChequeFigures figures = whenAccepted(rollbackOf(givenSale("0.00")));
    EXPECT_EQ(figures.spent, amount("5.00"));
    thenBalanceIs("500.00");
}

TEST_F(RollbackTest, TwiceIsOnce)
{
    const ChequeFigures sold = givenSale("40.00");
    whenAccepted(rollbackOf(sold));
    const ChequeFigures again = whenAccepted(rollbackOf(sold));
    EXPECT_EQ(again.balance, amount("500.00"));
    thenBalanceIs("500.00");
}

TEST_F(RollbackTest, TakesStatusPointsToo)
{
    data.earning.statusPercent = Percent::ofHundredths(100);
    whenAccepted(rollbackOf(givenSale("0.00")));
    EXPECT_EQ(
        desk().books().ledger.balance(QString::fromLatin1(testCard), Account::Status), Amount());
}

TEST_F(RollbackTest, OfAnUnknownTransactionIsRefused)
{
    givenSale("0.00");
    thenRefused(RollbackRequest{{}, QString::fromLatin1(testCard), u"0000000002"_s},
        returncodes::unknownSale);
    thenRefused(
        RollbackRequest{{}, QString::fromLatin1(testCard), u"x"_s}, returncodes::unknownSale);
}

TEST_F(RollbackTest, OfAnotherCardsTransactionIsRefused)
{
    givenCard("24", "0.00");
    const ChequeFigures sold = givenSale("0.00");
    thenRefused(RollbackRequest{{}, u"24"_s, sold.transaction}, returncodes::unknownSale);
    thenBalanceIs("505.00");
}

TEST_F(RollbackTest, OfASaleWithReturnsIsRefused)
{
    const ChequeFigures sold = givenSale("0.00");
    const ChequeFigures returned
        = whenAccepted(returnOf(u"17"_s, u"18"_s, {{"1001", "100.00", "1.000"}}));
    thenRefused(rollbackOf(sold), returncodes::unknownSale);
    whenAccepted(rollbackOf(returned));
    whenAccepted(rollbackOf(sold));
    thenBalanceIs("500.00");
}

TEST_F(RollbackTest, OfAReturnLetsTheGoodsComeBackAgain)
{
    givenSale("40.00");
    const ChequeFigures returned
        = whenAccepted(returnOf(u"17"_s, u"18"_s, {{"1001", "100.00", "1.000"}}));
    whenAccepted(rollbackOf(returned));
    thenBalanceIs("463.00");
    whenAccepted(returnOf(u"17"_s, u"19"_s, {{"1001", "100.00", "1.000"}}));
    thenBalanceIs("500.00");
}

TEST_F(RollbackTest, LetsTheChequeStartAnewAtTheTill)
{
    data.spending.share = Percent::ofHundredths(10000);
    const ChequeFigures soft = whenAccepted(sale);
    const ChequeFigures wish = whenAccepted(nextSoft(sale, soft, amount("100.00")));
    whenAccepted(rollbackOf(whenAccepted(fiscal(sale, wish, amount("100.00")))));
    EXPECT_EQ(whenAccepted(sale).spent, Amount()) << "the first calculation asks for nothing";
}

} // namespace
} // namespace emulator

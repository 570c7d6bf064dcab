#include "tests/emulator/support/desktest.h"

using namespace Qt::Literals::StringLiterals;

namespace emulator {
namespace {

class ReturnDeskTest : public DeskTest
{
protected:
    /// Three loaves and a cheese, 60 of the 300 paid with points, 12 points earned.
    ChequeFigures givenSale(const QString &number = u"17"_s)
    {
        const SaleRequest sale
            = firstSoft(number, {{"1001", "50.00", "3.000"}, {"1003", "150.00", "1.000"}});
        return whenAccepted(fiscal(sale, whenAccepted(sale), amount("60.00")));
    }
};

TEST_F(ReturnDeskTest, OfEverythingPutsTheCardBack)
{
    givenSale();
    thenBalanceIs("452.00");
    const ChequeFigures figures = whenAccepted(
        returnOf(u"17"_s, u"18"_s, {{"1001", "50.00", "3.000"}, {"1003", "150.00", "1.000"}}));
    EXPECT_EQ(figures.earned, amount("60.00")) << "given back";
    EXPECT_EQ(figures.spent, amount("12.00")) << "taken back";
    EXPECT_EQ(figures.sumDiscounted, amount("300.00"));
    EXPECT_EQ(figures.balance, amount("500.00"));
    thenBalanceIs("500.00");
}

TEST_F(ReturnDeskTest, OfAPartIsInProportion)
{
    givenSale();
    const ChequeFigures figures
        = whenAccepted(returnOf(u"17"_s, u"18"_s, {{"1001", "50.00", "1.000"}}));
    EXPECT_EQ(figures.earned, amount("10.00"));
    EXPECT_EQ(figures.spent, amount("2.00"));
    ASSERT_EQ(figures.positions.size(), 1u);
    EXPECT_EQ(figures.positions[0].sum, amount("50.00"));
    EXPECT_EQ(figures.positions[0].earned, amount("10.00"));
    EXPECT_EQ(figures.positions[0].spent, amount("2.00"));
}

TEST_F(ReturnDeskTest, InSeveralPartsComesToExactlyTheSale)
{
    givenSale();
    for (const QString &number : {u"18"_s, u"19"_s, u"20"_s})
        whenAccepted(returnOf(u"17"_s, number, {{"1001", "50.00", "1.000"}}));
    thenRefused(returnOf(u"17"_s, u"21"_s, {{"1001", "50.00", "1.000"}}), returncodes::unknownSale);
    whenAccepted(returnOf(u"17"_s, u"22"_s, {{"1003", "150.00", "1.000"}}));
    thenBalanceIs("500.00");
}

TEST_F(ReturnDeskTest, InSeveralPartsComesToExactlyTheSumsOfTheSale)
{
    data.articleDiscounts = {{u"1001"_s, amount("0.01")}};
    whenAccepted(offlineFiscal(u"17"_s,
        {{"1003", "150.00", "1.000"}, {"1001", "4.00", "0.250"}, {"1001", "4.00", "0.250"}}));
    Amount sum;
    Amount discounted;
    for (const char *part : {"0.100", "0.100", "0.200", "0.100"}) {
        const ChequeFigures figures = whenAccepted(returnOf(
            u"17"_s, u"R"_s + QString::number(sum.hundredths()), {{"1001", "4.00", part}}));
        ASSERT_EQ(figures.positions.size(), 1u);
        EXPECT_EQ(figures.positions[0].sum, figures.sum);
        EXPECT_EQ(figures.positions[0].sumDiscounted, figures.sumDiscounted);
        sum += figures.sum;
        discounted += figures.sumDiscounted;
    }
    EXPECT_EQ(sum, amount("2.00"));
    EXPECT_EQ(discounted, amount("2.00"));
}

TEST_F(ReturnDeskTest, TellsEachOfItsPositionsApart)
{
    givenSale();
    const ChequeFigures figures = whenAccepted(returnOf(u"17"_s, u"18"_s,
        {{"1003", "150.00", "1.000"}, {"1001", "50.00", "0.000"}, {"1001", "50.00", "2.000"}}));
    ASSERT_EQ(figures.positions.size(), 3u);
    EXPECT_EQ(figures.positions[0].earned, amount("30.00"));
    EXPECT_EQ(figures.positions[1].earned, Amount());
    EXPECT_EQ(figures.positions[2].earned, amount("20.00"));
    EXPECT_EQ(figures.positions[2].spent, amount("4.00"));
}

TEST_F(ReturnDeskTest, TakesItsPartOfWhatTheChequeEarnedAsAWhole)
{
    data.earning.cheque = {{Amount(), amount("3.00")}};
    whenAccepted(offlineFiscal(u"17"_s, {{"1001", "50.00", "2.000"}, {"1003", "50.00", "1.000"}}));
    thenBalanceIs("510.50");
    whenAccepted(returnOf(u"17"_s, u"18"_s, {{"1001", "50.00", "1.000"}}));
    thenBalanceIs("507.00");
    whenAccepted(returnOf(u"17"_s, u"19"_s, {{"1001", "50.00", "1.000"}}));
    whenAccepted(returnOf(u"17"_s, u"20"_s, {{"1003", "50.00", "1.000"}}));
    thenBalanceIs("500.00");
}

TEST_F(ReturnDeskTest, TakesStatusPointsBackToo)
{
    data.earning.statusPercent = Percent::ofHundredths(100);
    whenAccepted(offlineFiscal(u"17"_s, {{"1001", "50.00", "2.000"}}));
    whenAccepted(returnOf(u"17"_s, u"18"_s, {{"1001", "50.00", "1.000"}}));
    EXPECT_EQ(desk().books().ledger.balance(QString::fromLatin1(testCard), Account::Status),
        amount("0.50"));
}

TEST_F(ReturnDeskTest, CannotTakePointsThatAreSpentMeanwhile)
{
    givenCard("24", "0.00");
    data.earning.percent = Percent::ofHundredths(10000);
    SaleRequest sale = offlineFiscal(u"17"_s, {{"1001", "50.00", "1.000"}});
    sale.card = u"24"_s;
    whenAccepted(sale);
    SaleRequest spending = offlineFiscal(u"18"_s, {{"1010", "90.00", "1.000"}});
    spending.card = u"24"_s;
    spending.paidByBonus = amount("45.00");
    whenAccepted(spending);
    ReturnRequest returning = returnOf(u"17"_s, u"19"_s, {{"1001", "50.00", "1.000"}});
    returning.card = u"24"_s;
    whenAccepted(returning);
    thenBalanceIs("0.00", "24");
}

TEST_F(ReturnDeskTest, FindsTheSaleByItsDay)
{
    givenSale();
    ReturnRequest returning = returnOf(u"17"_s, u"18"_s, {{"1001", "50.00", "1.000"}});
    returning.sale.date = now.toLocalTime().date().addDays(1);
    thenRefused(returning, returncodes::unknownSale);
    returning.sale.date = now.toLocalTime().date();
    whenAccepted(returning);
}

TEST_F(ReturnDeskTest, FindsTheSaleOfThatDayAmongReusedNumbers)
{
    const QDate firstDay = now.toLocalTime().date();
    whenAccepted(offlineFiscal(u"17"_s, {{"1001", "50.00", "1.000"}}));
    now = now.addDays(10);
    whenAccepted(offlineFiscal(u"17"_s, {{"1003", "150.00", "1.000"}}));
    ReturnRequest returning = returnOf(u"17"_s, u"18"_s, {{"1001", "50.00", "1.000"}});
    thenRefused(returning, returncodes::unknownSale);
    returning.sale.date = firstDay;
    whenAccepted(returning);
}

TEST_F(ReturnDeskTest, OfAnUnknownSaleIsRefused)
{
    givenSale();
    thenRefused(returnOf(u"16"_s, u"18"_s, {{"1001", "50.00", "1.000"}}), returncodes::unknownSale);
    ReturnRequest elsewhere = returnOf(u"17"_s, u"18"_s, {{"1001", "50.00", "1.000"}});
    elsewhere.sale.till.pos = u"2"_s;
    thenRefused(elsewhere, returncodes::unknownSale);
}

TEST_F(ReturnDeskTest, OfMoreThanSoldIsRefusedAndMovesNothing)
{
    givenSale();
    thenRefused(returnOf(u"17"_s, u"18"_s, {{"1001", "50.00", "3.001"}}), returncodes::unknownSale);
    thenBalanceIs("452.00");
}

TEST_F(ReturnDeskTest, WithoutASaleIsBookedAndMovesNothing)
{
    whenAccepted(returnOf(QString(), u"18"_s, {{"1001", "50.00", "1.000"}}));
    EXPECT_EQ(transactionCount(), 1u);
    thenBalanceIs("500.00");
}

TEST_F(ReturnDeskTest, GoesThroughForACardThatTheTillHasMadeUp)
{
    data.technicalCards = {u"375"_s, u"made up"_s, 2};
    ReturnRequest returning = returnOf(QString(), u"18"_s, {{"1001", "50.00", "1.000"}});
    returning.card = u"3750"_s;
    EXPECT_EQ(whenAccepted(returning).balance, Amount());
    EXPECT_TRUE(desk().books().cards.find(returning.card)->technical);
}

TEST_F(ReturnDeskTest, GoesThroughForABlockedCard)
{
    data.servedStatuses = {2, 3};
    givenCard("31", "0.00", 3);
    ReturnRequest returning = returnOf(QString(), u"18"_s, {});
    returning.card = u"31"_s;
    data.servedStatuses = {2};
    whenAccepted(returning);
}

} // namespace
} // namespace emulator

#include "tests/emulator/support/desktest.h"

using namespace Qt::Literals::StringLiterals;

namespace emulator {
namespace {

class SaleTest : public DeskTest
{ };

TEST_F(SaleTest, CalculationLeavesTheBooksAsTheyAre)
{
    const ChequeFigures figures = whenAccepted(firstSoft(u"17"_s, {{"1001", "100.00", "1.000"}}));
    EXPECT_EQ(figures.transaction, QString());
    EXPECT_EQ(figures.earned, amount("5.00"));
    EXPECT_EQ(figures.balance, amount("500.00"));
    EXPECT_EQ(transactionCount(), 0u);
    thenBalanceIs("500.00");
}

TEST_F(SaleTest, CalculationComputesFromPriceAndQuantityNotFromStaleSums)
{
    SaleRequest sale = firstSoft(u"17"_s, {{"1001", "100.00", "2.000"}});
    sale.sum = amount("1.00");
    sale.sumDiscounted = amount("1.00");
    sale.paidByBonus = Amount();
    EXPECT_EQ(whenAccepted(sale).sum, amount("200.00"));
}

TEST_F(SaleTest, RegistrationBooksWhatTheChequeEarns)
{
    const SaleRequest sale = firstSoft(u"17"_s, {{"1001", "100.00", "1.000"}});
    const ChequeFigures soft = whenAccepted(sale);
    const ChequeFigures figures = whenAccepted(fiscal(sale, soft, Amount()));
    EXPECT_EQ(figures.transaction, u"0000000001");
    EXPECT_EQ(figures.earned, amount("5.00"));
    EXPECT_EQ(figures.balance, amount("505.00"));
    thenBalanceIs("505.00");
}

TEST_F(SaleTest, RegistrationWithoutACalculationSpendsNothing)
{
    const ChequeFigures figures
        = whenAccepted(offlineFiscal(u"17"_s, {{"1001", "100.00", "1.000"}}));
    EXPECT_EQ(figures.spent, Amount());
    thenBalanceIs("505.00");
}

TEST_F(SaleTest, OfSeveralPositionsEarnsOnEach)
{
    const ChequeFigures figures = whenAccepted(
        firstSoft(u"17"_s, {{"1001", "100.00", "1.000"}, {"1002", "50.00", "1.000"}}));
    ASSERT_EQ(figures.positions.size(), 2u);
    EXPECT_EQ(figures.positions[0].earned, amount("5.00"));
    EXPECT_EQ(figures.positions[1].earned, amount("2.50"));
}

TEST_F(SaleTest, OfNothingIsRegisteredToo)
{
    EXPECT_EQ(whenAccepted(offlineFiscal(u"17"_s, {})).sum, Amount());
    EXPECT_EQ(transactionCount(), 1u);
}

TEST_F(SaleTest, EarnsOnTheWholeChequeToo)
{
    data.earning.cheque = {{amount("100.00"), amount("7.77")}};
    const ChequeFigures figures = whenAccepted(
        offlineFiscal(u"17"_s, {{"1001", "100.00", "1.000"}, {"1002", "50.00", "1.000"}}));
    EXPECT_EQ(figures.earned, amount("15.27"));
    thenBalanceIs("515.27");
}

TEST_F(SaleTest, BooksStatusPointsOnTheirOwnAccount)
{
    data.earning.statusPercent = Percent::ofHundredths(100);
    whenAccepted(offlineFiscal(u"17"_s, {{"1001", "100.00", "1.000"}}));
    thenBalanceIs("505.00");
    EXPECT_EQ(desk().books().ledger.balance(QString::fromLatin1(testCard), Account::Status),
        amount("1.00"));
}

TEST_F(SaleTest, FillsTheMessagesOfItsStage)
{
    data.cards[0].holder = u"Орлов"_s;
    data.softMessages.cashier = u"{holder} {card} {balance} {discount} {sum}"_s;
    data.fiscalMessages = {u"{earned} {spent}"_s, u"{balance}"_s};
    const SaleRequest sale = firstSoft(u"17"_s, {{"1001", "100.00", "1.000"}});
    const ChequeFigures soft = whenAccepted(sale);
    EXPECT_EQ(soft.cashierMessage, u"Орлов 2900000000017 500.00 0.00 100.00");
    EXPECT_EQ(soft.chequeMessage, QString());
    const ChequeFigures registered = whenAccepted(fiscal(sale, soft, amount("40.00")));
    EXPECT_EQ(registered.cashierMessage, u"3.00 40.00");
    EXPECT_EQ(registered.chequeMessage, u"463.00");
}

TEST_F(SaleTest, IsStampedWithTheLocalTimeOfTheService)
{
    const ChequeFigures figures = whenAccepted(offlineFiscal(u"17"_s, {}));
    EXPECT_EQ(figures.processed, now.toLocalTime());
}

TEST_F(SaleTest, CalculationsThatNobodyRegistersAreForgottenTillByTill)
{
    SaleRequest sale = firstSoft(u"17"_s, {{"1001", "100.00", "1.000"}});
    SaleRequest other = sale;
    other.till.pos = u"other"_s;
    whenAccepted(other);
    constexpr int kept = Calculations::keptForATill;
    for (int cheque = 0; cheque <= kept; ++cheque) {
        sale.number = QString::number(cheque);
        whenAccepted(sale);
    }
    const Calculations &calculations = desk().books().calculations;
    const auto isKept = [&](const SaleRequest &request, int cheque) {
        return calculations.recall({request.till, QString::number(cheque), request.card})
            .has_value();
    };
    EXPECT_FALSE(isKept(sale, 0));
    EXPECT_TRUE(isKept(sale, 1));
    EXPECT_TRUE(isKept(sale, kept));
    EXPECT_TRUE(isKept(other, other.number.toInt()));
}

} // namespace
} // namespace emulator

#include "emulator/rules/wish.h"

#include "tests/emulator/support/requests.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace emulator {
namespace {

class WishTest : public testing::Test
{
protected:
    WishTest()
    {
        sale.sum = amount("100.00");
        sale.discount = amount("10.00");
        sale.sumDiscounted = amount("90.00");
        sale.paidByBonus = amount("90.00");
        last.sum = sale.sum;
        last.discount = sale.discount;
        last.sumDiscounted = sale.sumDiscounted;
    }

    SaleRequest sale;
    LastCalculation last;
};

TEST_F(WishTest, IsWhatIsPaidByBonus)
{
    sale.paidByBonus = amount("30.00");
    EXPECT_EQ(wishOf(sale, {}), amount("30.00"));
    EXPECT_EQ(wishOf(sale, last), amount("30.00"));
}

TEST_F(WishTest, IsNothingInTheFirstCalculation)
{
    EXPECT_EQ(wishOf(sale, {}), Amount());
}

TEST_F(WishTest, IsTheWholeSumWhenTheLastFiguresAreRepeated)
{
    EXPECT_EQ(wishOf(sale, last), amount("90.00"));
}

TEST_F(WishTest, IsNothingWhenAnotherChequeHasTakenTheNumber)
{
    last.sum = amount("100.01");
    EXPECT_EQ(wishOf(sale, last), Amount());
    last = {sale.sum, amount("9.99"), sale.sumDiscounted, {}, {}, {}};
    EXPECT_EQ(wishOf(sale, last), Amount());
    last = {sale.sum, sale.discount, amount("89.99"), {}, {}, {}};
    EXPECT_EQ(wishOf(sale, last), Amount());
}

TEST_F(WishTest, OfAChequeThatIsOverIsOnlyMeantInItsRegistration)
{
    last.isOver = true;
    last.wish = amount("90.00");
    EXPECT_EQ(wishOf(sale, last), Amount());
    sale.fiscal = true;
    EXPECT_EQ(wishOf(sale, last), amount("90.00"));
}

TEST_F(WishTest, OfARegistrationIsTheWholeSumOnlyWhenItWasCalculatedSo)
{
    sale.fiscal = true;
    EXPECT_EQ(wishOf(sale, last), Amount());
    last.wish = amount("90.00");
    EXPECT_EQ(wishOf(sale, last), amount("90.00"));
}

TEST_F(WishTest, OfAnOfflineRegistrationIsNothing)
{
    sale.fiscal = true;
    EXPECT_EQ(wishOf(sale, {}), Amount());
}

} // namespace
} // namespace emulator

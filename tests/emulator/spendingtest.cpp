#include "emulator/rules/spending.h"

#include "tests/emulator/support/calculated.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;

namespace emulator {
namespace {

constexpr Percent half = Percent::ofHundredths(5000);
constexpr Percent whole = Percent::ofHundredths(10000);

TEST(AvailablePayment, IsTheShareOfTheSum)
{
    const Calculation calculation{calculated({{"1", "90.00", "1.000"}}), {}};
    EXPECT_EQ(availablePayment(calculation, half, amount("500.00")), amount("45.00"));
}

TEST(AvailablePayment, IsNoMoreThanTheBalance)
{
    const Calculation calculation{calculated({{"1", "90.00", "1.000"}}), {}};
    EXPECT_EQ(availablePayment(calculation, half, amount("7.50")), amount("7.50"));
}

TEST(AvailablePayment, LeavesTheMinimumPrices)
{
    const Calculation calculation{
        calculated({{"1", "90.00", "1.000", "80.00"}, {"2", "10.00", "1.000", "10.00"}}), {}};
    EXPECT_EQ(availablePayment(calculation, whole, amount("500.00")), amount("10.00"));
}

TEST(Spend, SpreadsThePointsInProportionAndExactly)
{
    Positions positions = calculated({{"1", "10.00", "1.000"}, {"2", "20.00", "1.000"}});
    spend(positions, amount("10.00"));
    EXPECT_EQ(positions[0].spent, amount("3.33"));
    EXPECT_EQ(positions[1].spent, amount("6.67"));
}

TEST(Spend, LeavesPositionsAtTheirMinimumAlone)
{
    Positions positions = calculated({{"1", "10.00", "1.000", "10.00"}, {"2", "20.00", "1.000"}});
    spend(positions, amount("5.00"));
    EXPECT_EQ(positions[0].spent, amount("0.00"));
    EXPECT_EQ(positions[1].spent, amount("5.00"));
}

} // namespace
} // namespace emulator

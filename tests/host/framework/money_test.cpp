#include "host/documents/money.h"

#include <QList>

#include <gtest/gtest.h>

#include <utility>

namespace {

TEST(Money, AmountsAreEqualWithinTheTolerance)
{
    EXPECT_TRUE(money::equal(10.0, 10.0));
    EXPECT_TRUE(money::equal(10.0, 10.0049));
    EXPECT_TRUE(money::equal(10.0049, 10.0));
    EXPECT_FALSE(money::equal(10.0, 10.0051));
    EXPECT_FALSE(money::equal(-0.01, 0.01));
}

TEST(Money, AnAmountCountsWhenItIsGreaterThanTheTolerance)
{
    EXPECT_TRUE(money::counts(0.0051));
    EXPECT_FALSE(money::counts(0.005));
    EXPECT_FALSE(money::counts(0.0));
    EXPECT_FALSE(money::counts(-1.0));
}

TEST(Money, IsRoundedToKopecksHalvesAwayFromZero)
{
    const QList<std::pair<double, double>> rows{{1.004, 1.0}, {1.005, 1.01}, {1.015, 1.02},
        {2.675, 2.68}, {-1.005, -1.01}, {-1.004, -1.0}, {0.0, 0.0}, {1.0049, 1.0},
        {1000000.125, 1000000.13}};
    for (const auto &[amount, rounded] : rows) {
        SCOPED_TRACE(amount);
        EXPECT_DOUBLE_EQ(money::roundedToKopecks(amount), rounded);
    }
}

} // namespace

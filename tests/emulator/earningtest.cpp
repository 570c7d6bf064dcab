#include "emulator/rules/earning.h"

#include "tests/emulator/support/calculated.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace emulator {
namespace {

class EarningTest : public testing::Test
{
protected:
    EarningTest() { earning.percent = Percent::ofHundredths(500); }

    Calculation whenEarned(Positions positions)
    {
        Calculation calculation{std::move(positions), {}};
        earn(calculation, earning);
        return calculation;
    }

    Earning earning;
};

TEST_F(EarningTest, IsAShareOfWhatIsPaid)
{
    Positions positions = calculated({{"1", "100.00", "1.000"}});
    positions[0].sumDiscounted = amount("90.00");
    positions[0].spent = amount("30.00");
    EXPECT_EQ(whenEarned(positions).earned(), amount("3.00"));
}

TEST_F(EarningTest, OfAnArticleReplacesTheCommonShare)
{
    earning.articles = {{u"1010"_s, Percent()}};
    const Calculation calculation
        = whenEarned(calculated({{"1010", "100.00", "1.000"}, {"1001", "100.00", "1.000"}}));
    EXPECT_EQ(calculation.positions[0].earned, amount("0.00"));
    EXPECT_EQ(calculation.positions[1].earned, amount("5.00"));
}

TEST_F(EarningTest, CountsStatusPointsApart)
{
    earning.statusPercent = Percent::ofHundredths(100);
    const Calculation calculation = whenEarned(calculated({{"1", "100.00", "1.000"}}));
    EXPECT_EQ(calculation.earned(), amount("5.00"));
    EXPECT_EQ(calculation.earnedStatus(), amount("1.00"));
}

TEST_F(EarningTest, OfTheChequeFollowsTheFirstOfEqualThresholds)
{
    earning.cheque = {{amount("100.00"), amount("7.00")}, {amount("100.00"), amount("20.00")}};
    EXPECT_EQ(whenEarned(calculated({{"1", "100.00", "1.000"}})).earnedByCheque, amount("7.00"));
}

TEST_F(EarningTest, OfTheChequeFollowsTheHighestThresholdOfWhatIsPaid)
{
    earning.cheque = {{amount("100.00"), amount("7.00")}, {amount("200.00"), amount("20.00")}};
    Positions positions = calculated({{"1", "200.00", "1.000"}});
    positions[0].spent = amount("0.01");
    const Calculation calculation = whenEarned(positions);
    EXPECT_EQ(calculation.earnedByCheque, amount("7.00"));
    EXPECT_EQ(calculation.earned(), amount("17.00"));
}

TEST_F(EarningTest, NothingPaidEarnsNothing)
{
    earning.cheque = {{Amount(), amount("7.00")}};
    EXPECT_EQ(whenEarned({}).earned(), amount("0.00"));
}

} // namespace
} // namespace emulator

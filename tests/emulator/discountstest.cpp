#include "emulator/rules/discounts.h"

#include "tests/emulator/support/calculated.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;
using testing::ElementsAre;

namespace emulator {
namespace {

constexpr Percent percent(int whole)
{
    return Percent::ofHundredths(whole * 100);
}

class DiscountsTest : public testing::Test
{
protected:
    std::vector<Amount> whenApplied(std::initializer_list<Sold> sold)
    {
        Positions positions = calculated(sold);
        applyDiscounts(positions, data, coupons);
        std::vector<Amount> sums;
        for (const CalculatedPosition &position : positions)
            sums.push_back(position.sumDiscounted);
        return sums;
    }

    ServiceData data;
    std::vector<Reduction> coupons;
};

TEST_F(DiscountsTest, WithoutRulesLeaveTheSums)
{
    EXPECT_THAT(whenApplied({{"1001", "45.90", "2.000"}}), ElementsAre(amount("91.80")));
}

TEST_F(DiscountsTest, OfAnArticleConcernItsPositionsOnly)
{
    data.articleDiscounts = {{u"1001"_s, percent(10)}};
    EXPECT_THAT(whenApplied({{"1001", "45.90", "2.000"}, {"1002", "10.00", "1.000"}}),
        ElementsAre(amount("82.62"), amount("10.00")));
}

TEST_F(DiscountsTest, OfAFixedAmountAreTakenOffEachUnit)
{
    data.articleDiscounts = {{u"1003"_s, amount("50.00")}};
    EXPECT_THAT(whenApplied({{"1003", "649.00", "0.500"}}), ElementsAre(amount("299.50")));
}

TEST_F(DiscountsTest, NeverMakeAPositionCheaperThanItsMinimum)
{
    data.articleDiscounts = {{u"1001"_s, percent(90)}, {u"1002"_s, amount("99.00")}};
    EXPECT_THAT(whenApplied({{"1001", "10.00", "2.000", "8.00"}, {"1002", "10.00", "1.000"}}),
        ElementsAre(amount("16.00"), amount("0.00")));
}

TEST_F(DiscountsTest, AMinimumAboveThePriceTakesNothingOff)
{
    data.articleDiscounts = {{u"1001"_s, percent(10)}};
    EXPECT_THAT(whenApplied({{"1001", "10.00", "1.000", "12.00"}}), ElementsAre(amount("10.00")));
}

TEST_F(DiscountsTest, OfTheChequeFollowTheHighestThresholdReachedAfterArticleDiscounts)
{
    data.articleDiscounts = {{u"1001"_s, percent(10)}};
    data.chequeDiscounts = {{amount("90.00"), percent(5)}, {amount("100.00"), percent(20)}};
    EXPECT_THAT(whenApplied({{"1001", "100.00", "1.000"}}), ElementsAre(amount("85.50")));
}

TEST_F(DiscountsTest, OfAFixedAmountAreSpreadOverTheChequeExactly)
{
    data.chequeDiscounts = {{Amount(), amount("1.00")}};
    EXPECT_THAT(
        whenApplied({{"1", "10.00", "1.000"}, {"2", "10.00", "1.000"}, {"3", "10.00", "1.000"}}),
        ElementsAre(amount("9.66"), amount("9.67"), amount("9.67")));
}

TEST_F(DiscountsTest, OfAFixedAmountGoWhereThereIsRoom)
{
    data.chequeDiscounts = {{Amount(), amount("15.00")}};
    EXPECT_THAT(whenApplied({{"1", "10.00", "1.000", "10.00"}, {"2", "20.00", "1.000", "8.00"}}),
        ElementsAre(amount("10.00"), amount("8.00")));
}

TEST_F(DiscountsTest, OfCouponsComeLastAndOneAfterTheOther)
{
    data.articleDiscounts = {{u"1"_s, percent(10)}};
    coupons = {percent(10), amount("1.00")};
    EXPECT_THAT(whenApplied({{"1", "100.00", "1.000"}}), ElementsAre(amount("80.00")));
}

} // namespace
} // namespace emulator

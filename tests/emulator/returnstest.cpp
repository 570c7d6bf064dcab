#include "emulator/rules/returns.h"

#include "tests/emulator/support/requests.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace emulator {
namespace {

SoldPosition sold(int number, const char *article, const char *count)
{
    SoldPosition position;
    position.number = number;
    position.article = QString::fromLatin1(article);
    position.quantity = quantity(count);
    position.sum = amount("30.00");
    position.sumDiscounted = amount("27.00");
    position.earned = amount("1.00");
    position.earnedStatus = amount("0.50");
    position.spent = amount("10.00");
    return position;
}

RequestPosition returned(int number, const char *article, const char *count)
{
    RequestPosition position;
    position.number = number;
    position.article = QString::fromLatin1(article);
    position.quantity = quantity(count);
    return position;
}

TEST(PlanReturn, OfEverythingTakesAndGivesEverything)
{
    const auto parts = planReturn({sold(1, "A", "3.000")}, {returned(1, "A", "3.000")});
    ASSERT_TRUE(parts);
    ASSERT_EQ(parts->size(), 1u);
    EXPECT_EQ(parts->front().takeBack, amount("1.00"));
    EXPECT_EQ(parts->front().takeBackStatus, amount("0.50"));
    EXPECT_EQ(parts->front().giveBack, amount("10.00"));
    EXPECT_EQ(parts->front().sumDiscounted, amount("27.00"));
}

TEST(PlanReturn, InThirdsComesToExactlyTheSumsToo)
{
    SoldPosition position = sold(1, "A", "3.000");
    position.sum = amount("10.00");
    position.sumDiscounted = amount("9.98");
    position.returned = quantity("2.000");
    position.sumReturned = amount("6.66");
    position.sumDiscountedReturned = amount("6.65");
    const auto parts = planReturn({position}, {returned(1, "A", "1.000")});
    ASSERT_TRUE(parts);
    EXPECT_EQ(parts->front().sum, amount("3.34"));
    EXPECT_EQ(parts->front().sumDiscounted, amount("3.33"));
}

TEST(PlanReturn, InThirdsComesToExactlyTheWhole)
{
    SoldPosition position = sold(1, "A", "3.000");
    Amount taken;
    Amount given;
    for (int third = 0; third < 3; ++third) {
        const auto parts = planReturn({position}, {returned(1, "A", "1.000")});
        ASSERT_TRUE(parts);
        position.returned += parts->front().quantity;
        position.earnedReturned += parts->front().takeBack;
        position.spentReturned += parts->front().giveBack;
        taken += parts->front().takeBack;
        given += parts->front().giveBack;
    }
    EXPECT_EQ(taken, amount("1.00"));
    EXPECT_EQ(given, amount("10.00"));
}

TEST(PlanReturn, GivesWholeStickersBackAndTheRestWithTheLastPart)
{
    SoldPosition position = sold(1, "A", "4.000");
    position.stickers = amount("10.00");
    for (const char *stickers : {"2.00", "3.00", "2.00", "3.00"}) {
        const auto parts = planReturn({position}, {returned(1, "A", "1.000")});
        ASSERT_TRUE(parts);
        EXPECT_EQ(parts->front().giveBackStickers, amount(stickers));
        position.returned += parts->front().quantity;
        position.stickersReturned += parts->front().giveBackStickers;
    }
}

TEST(PlanReturn, CountsTheStickersOfTwoPositionsOfOneReturnTogether)
{
    SoldPosition position = sold(1, "A", "4.000");
    position.stickers = amount("10.00");
    const auto parts
        = planReturn({position}, {returned(1, "A", "1.000"), returned(2, "A", "3.000")});
    ASSERT_TRUE(parts);
    EXPECT_EQ((*parts)[0].giveBackStickers, amount("2.00"));
    EXPECT_EQ((*parts)[1].giveBackStickers, amount("8.00"));
}

TEST(PlanReturn, NeverGivesLessThanNoStickersAfterAnEarlierPartWasUndone)
{
    SoldPosition position = sold(1, "A", "4.000");
    position.stickers = amount("10.00");
    position.returned = quantity("1.000");
    position.stickersReturned = amount("3.00"); // of the second part, the first one was undone
    const auto parts = planReturn({position}, {returned(1, "A", "0.100")});
    ASSERT_TRUE(parts);
    EXPECT_EQ(parts->front().giveBackStickers, Amount());
}

TEST(PlanReturn, OfMoreThanSoldIsNothing)
{
    EXPECT_FALSE(planReturn({sold(1, "A", "3.000")}, {returned(1, "A", "3.001")}));
    EXPECT_FALSE(planReturn({sold(1, "A", "3.000")}, {returned(1, "B", "1.000")}));
}

TEST(PlanReturn, CountsWhatCameBackBefore)
{
    SoldPosition position = sold(1, "A", "3.000");
    position.returned = quantity("2.500");
    EXPECT_FALSE(planReturn({position}, {returned(1, "A", "0.501")}));
    EXPECT_TRUE(planReturn({position}, {returned(1, "A", "0.500")}));
}

TEST(PlanReturn, CountsTwoPositionsOfOneReturnTogether)
{
    EXPECT_FALSE(planReturn(
        {sold(1, "A", "3.000")}, {returned(1, "A", "2.000"), returned(2, "A", "2.000")}));
}

TEST(PlanReturn, PrefersThePositionOfTheSameNumber)
{
    const auto parts
        = planReturn({sold(1, "A", "1.000"), sold(2, "A", "1.000")}, {returned(2, "A", "1.000")});
    ASSERT_TRUE(parts);
    ASSERT_EQ(parts->size(), 1u);
    EXPECT_EQ(parts->front().salePosition, 2);
}

TEST(PlanReturn, OfOnePositionMayComeFromSeveral)
{
    const auto parts
        = planReturn({sold(1, "A", "1.000"), sold(2, "A", "1.000")}, {returned(7, "A", "2.000")});
    ASSERT_TRUE(parts);
    ASSERT_EQ(parts->size(), 2u);
    EXPECT_EQ((*parts)[0].number, 7);
    EXPECT_EQ((*parts)[1].salePosition, 2);
}

TEST(PlanReturn, NeverTakesLessThanNothingAfterAnEarlierPartWasUndone)
{
    SoldPosition position = sold(1, "A", "3.000");
    position.earned = amount("0.01");
    position.earnedReturned = amount("0.01"); // of the middle third, the first one was undone
    position.returned = quantity("1.000");
    const auto parts = planReturn({position}, {returned(1, "A", "0.001")});
    ASSERT_TRUE(parts);
    EXPECT_EQ(parts->front().takeBack, amount("0.00"));
}

TEST(PlanReturn, OfAPositionWithoutQuantityIsNothing)
{
    EXPECT_FALSE(planReturn({sold(1, "A", "0.000")}, {returned(1, "A", "1.000")}));
    EXPECT_TRUE(planReturn({sold(1, "A", "0.000")}, {returned(1, "A", "0.000")}));
}

} // namespace
} // namespace emulator

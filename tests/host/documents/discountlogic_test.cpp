// What loyalty systems grant, applied to positions, taken off, and prepared for sending.

#include "host/documents/discountlogic.h"
#include "tests/support/hostfixture.h"

#include <gtest/gtest.h>

namespace {

class DiscountLogicTest : public testing::Test, public HostFixture
{
protected:
    DiscountLogicTest()
    {
        givenCurrentDocument();
        first = givenPosition(QStringLiteral("1001"), 100, 2);
        second = givenPosition(QStringLiteral("1002"), 50);
    }

    template <typename Impact> static QSharedPointer<Impact> makeImpact(int position, double sum)
    {
        const auto detail = QSharedPointer<DocumentImpactDetail>::create();
        detail->setPosition(position);
        detail->setDiscountSum(sum);
        return QSharedPointer<Impact>::create(detail);
    }
    void whenDiscounted(int position, double sum)
    {
        logic.applyDiscounts(document(), {makeImpact<DiscountImpact>(position, sum)});
    }
    void whenPaidWithPoints(int position, double sum)
    {
        logic.applyPoints(document(), {makeImpact<BonusImpact>(position, sum)});
    }
    void whenProcessed(EDiscountProcessing mode) { logic.process(document(), mode); }

    DiscountLogic logic;
    QSharedPointer<GoodsItem> first;
    QSharedPointer<GoodsItem> second;
};

TEST_F(DiscountLogicTest, DiscountLowersTheSumOfItsPosition)
{
    whenDiscounted(1, 20);
    EXPECT_DOUBLE_EQ(first->getSumn(), 200);
    EXPECT_DOUBLE_EQ(first->getSumb(), 180);
    EXPECT_DOUBLE_EQ(second->getSumb(), 50);
}

TEST_F(DiscountLogicTest, SeveralDiscountsOfAPositionAddUp)
{
    logic.applyDiscounts(
        document(), {makeImpact<DiscountImpact>(1, 20), makeImpact<DiscountImpact>(1, 5)});
    EXPECT_DOUBLE_EQ(first->getSumb(), 175);
}

TEST_F(DiscountLogicTest, NewDiscountsReplaceThoseBefore)
{
    whenDiscounted(1, 20);
    whenDiscounted(2, 5);
    EXPECT_DOUBLE_EQ(first->getSumb(), 200);
    EXPECT_DOUBLE_EQ(second->getSumb(), 45);
}

TEST_F(DiscountLogicTest, PointsComeOnTopOfDiscounts)
{
    whenDiscounted(1, 20);
    whenPaidWithPoints(1, 30);
    EXPECT_DOUBLE_EQ(first->getSumb(), 150);
}

TEST_F(DiscountLogicTest, NewPointsReplaceThoseBeforeAndLeaveDiscounts)
{
    whenDiscounted(1, 20);
    whenPaidWithPoints(1, 30);
    whenPaidWithPoints(2, 10);
    EXPECT_DOUBLE_EQ(first->getSumb(), 180);
    EXPECT_DOUBLE_EQ(second->getSumb(), 40);
}

TEST_F(DiscountLogicTest, UnknownPositionChangesNoSum)
{
    whenDiscounted(7, 20);
    whenPaidWithPoints(0, 20);
    EXPECT_DOUBLE_EQ(document()->getSumAfterDiscounts(), 250);
}

TEST_F(DiscountLogicTest, PartOfAPositionTakesItsPartOfTheDiscount)
{
    whenDiscounted(1, 20);
    first->setBquant(1);
    document()->recalculate();
    EXPECT_DOUBLE_EQ(first->getSumb(), 90);
}

TEST_F(DiscountLogicTest, PointsForAPartLeaveTheDiscountInProportion)
{
    whenDiscounted(1, 20);
    first->setBquant(1);
    whenPaidWithPoints(1, 30);
    EXPECT_DOUBLE_EQ(first->getAppliedDiscount(), 10);
    EXPECT_DOUBLE_EQ(first->getSumb(), 60);
}

TEST_F(DiscountLogicTest, RemovingLoyaltyTakesEverythingOff)
{
    whenDiscounted(1, 20);
    whenPaidWithPoints(2, 10);
    LoyaltyEffects effects;
    effects.pointsAvailable = 120;
    effects.discountImpacts = {makeImpact<DiscountImpact>(1, 20)};
    document()->setEffects(effects);
    whenProcessed(EDiscountProcessing::RemoveLoyalty);
    EXPECT_DOUBLE_EQ(document()->getSumAfterDiscounts(), 250);
    EXPECT_DOUBLE_EQ(first->getAppliedQuantity(), 0);
    EXPECT_TRUE(document()->getEffects().discountImpacts.isEmpty());
    EXPECT_DOUBLE_EQ(document()->getEffects().pointsAvailable, 0);
}

TEST_F(DiscountLogicTest, PreparingASaleComputesEveryPositionAnew)
{
    whenDiscounted(1, 20);
    first->setBquant(1);
    first->setSumb(1);
    second->setSumn(1);
    whenProcessed(EDiscountProcessing::PrepareForSending);
    EXPECT_DOUBLE_EQ(first->getSumb(), 90);
    EXPECT_DOUBLE_EQ(second->getSumn(), 50);
}

TEST_F(DiscountLogicTest, PreparingAReturnKeepsSumsThatAreNotRecalcable)
{
    givenCurrentDocument(EDocumentType::ReturnOfSale);
    const auto kept = givenPosition(QStringLiteral("1001"), 100);
    const auto recalcable = givenPosition(QStringLiteral("1002"), 100);
    recalcable->setRecalcable(true);
    kept->setSumb(77);
    recalcable->setSumb(77);
    whenProcessed(EDiscountProcessing::PrepareForSending);
    EXPECT_DOUBLE_EQ(kept->getSumb(), 77);
    EXPECT_DOUBLE_EQ(recalcable->getSumb(), 100);
}

} // namespace

// The sums of a position: price × quantity, and what was granted taken off.

#include "host/documents/goodsitem.h"

#include <gtest/gtest.h>

namespace {

struct Case
{
    const char *name;
    double price;
    double quantity;
    double discount;
    double points;
    double grantedFor;
    double sumBefore;
    double sumAfter;
    double pointsPaid;
};

class RecalculateTest : public testing::TestWithParam<Case>
{
protected:
    void whenRecalculated()
    {
        position.setPrice(GetParam().price);
        position.setBquant(GetParam().quantity);
        position.setAppliedDiscount(GetParam().discount);
        position.setAppliedPoints(GetParam().points);
        position.setAppliedQuantity(GetParam().grantedFor);
        position.recalculate();
    }

    GoodsItem position;
};

TEST_P(RecalculateTest, ComputesBothSumsToKopecks)
{
    whenRecalculated();
    EXPECT_DOUBLE_EQ(position.getSumn(), GetParam().sumBefore);
    EXPECT_DOUBLE_EQ(position.getSumb(), GetParam().sumAfter);
    EXPECT_DOUBLE_EQ(position.getPointsPaid(), GetParam().pointsPaid);
}

const Case cases[]{
    {"NothingGranted", 45.9, 2, 0, 0, 0, 91.8, 91.8, 0},
    {"NothingGrantedForAnyQuantity", 45.9, 2, 10, 5, 0, 91.8, 91.8, 0},
    {"Weighed", 649, 0.742, 0, 0, 0, 481.56, 481.56, 0},
    {"HalfKopecksUp", 0.05, 0.1, 0, 0, 0, 0.01, 0.01, 0},
    {"ProductShortOfItsHalf", 1.005, 1, 0, 0, 0, 1.01, 1.01, 0},
    {"Discount", 100, 2, 20, 0, 2, 200, 180, 0},
    {"DiscountAndPoints", 100, 2, 20, 30, 2, 200, 150, 30},
    {"HalfOfTheQuantityTakesHalf", 100, 1, 20, 30, 2, 100, 75, 15},
    {"ThirdIsRounded", 100, 1, 10, 0, 3, 100, 96.67, 0},
    {"MoreThanGrantedForTakesMore", 100, 4, 20, 0, 2, 400, 360, 0},
    {"NoQuantity", 100, 0, 20, 0, 2, 0, 0, 0},
    {"PointsTakeTheHalfKopeck", 399, 1, 0, 206.79, 2, 399, 295.61, 103.39},
    {"DiscountAndPointsWithHalfKopecks", 100, 1, 0.01, 0.01, 2, 100, 99.99, 0},
};

INSTANTIATE_TEST_SUITE_P(Positions, RecalculateTest, testing::ValuesIn(cases),
    [](const auto &row) { return row.param.name; });

TEST(GoodsItemTest, CopyHasEveryValueAndSharesTheGoodsRecord)
{
    GoodsItem position;
    position.setObjectName(QStringLiteral("position"));
    position.setPosnum(3);
    position.setCode(QStringLiteral("1001"));
    position.setBarcode(QStringLiteral("4600000010015"));
    position.setTmc(QSharedPointer<Tmc>::create());
    position.setUniteAvailableProp(false);
    position.setRecalcable(true);
    position.setAppliedPoints(7);
    position.setSumb(5);

    const auto copy = position.copy();
    EXPECT_EQ(copy->objectName(), position.objectName());
    EXPECT_EQ(copy->getPosnum(), 3);
    EXPECT_EQ(copy->getCode(), position.getCode());
    EXPECT_EQ(copy->getBarcode(), position.getBarcode());
    EXPECT_EQ(copy->getTmc(), position.getTmc());
    EXPECT_FALSE(copy->isUniteAvailable());
    EXPECT_TRUE(copy->isRecalcable());
    EXPECT_DOUBLE_EQ(copy->getAppliedPoints(), 7);
    EXPECT_DOUBLE_EQ(copy->getSumb(), 5);
}

TEST(TmcTest, FindsAnIndexPriceByItsCode)
{
    const auto price = QSharedPointer<TmcIndexPrice>::create(5, 350.0);
    const Tmc tmc({QSharedPointer<TmcIndexPrice>::create(1, 399.0), price});
    EXPECT_TRUE(tmc.hasIndexPrice(5));
    EXPECT_EQ(tmc.getIndexPrice(5), price);
    EXPECT_FALSE(tmc.hasIndexPrice(2));
    EXPECT_TRUE(tmc.getIndexPrice(2).isNull());
}

} // namespace

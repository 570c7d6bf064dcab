#include "emulator/rules/stickers.h"
#include "tests/emulator/support/calculated.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

using namespace Qt::Literals::StringLiterals;
using testing::ElementsAre;

namespace emulator {
namespace {

/// One position of an article that has an offer: 3 stickers take 60.00 off a unit.
struct Row
{
    const char *name;
    Sold sold;
    std::optional<int> limit;
    qint64 stickers;
    qint64 units; ///< what comes of it
};

std::string nameOf(const testing::TestParamInfo<Row> &info)
{
    return info.param.name;
}

class StickerBounds : public testing::TestWithParam<Row>
{
protected:
    Positions positions = calculated({GetParam().sold});
    const std::vector<StickerOffer> offers
        = {{u"tea"_s, 3, amount("60.00"), GetParam().limit}, {u"milk"_s, 1, amount("1.00"), {}}};
};

TEST_P(StickerBounds, HoldForAnOffer)
{
    offerStickers(positions, offers, GetParam().stickers);
    const auto &offered = positions[0].offered;
    EXPECT_EQ(offered ? offered->units : 0, GetParam().units);
    EXPECT_EQ(positions[0].sumDiscounted, positions[0].sum);
}

TEST_P(StickerBounds, HoldForAnExchangeOfAsManyAsPossible)
{
    const qint64 most = 1'000'000'000;
    const StickerSettlement settlement
        = exchangeStickers(positions, {{1, most}}, offers, GetParam().stickers);
    const auto &exchanged = positions[0].exchanged;
    EXPECT_EQ(exchanged ? exchanged->units : 0, GetParam().units);
    EXPECT_EQ(settlement.left, GetParam().stickers - 3 * GetParam().units);
    EXPECT_EQ(positions[0].sumDiscounted, positions[0].sum - amount("60.00") * GetParam().units);
}

INSTANTIATE_TEST_SUITE_P(Table, StickerBounds,
    testing::Values(Row{"Quantity", {"tea", "189.00", "2.000"}, {}, 100, 2},
        Row{"WholeUnitsOfTheQuantity", {"tea", "189.00", "2.999"}, {}, 100, 2},
        Row{"LessThanAUnit", {"tea", "189.00", "0.999"}, {}, 100, 0},
        Row{"Limit", {"tea", "189.00", "5.000"}, 4, 100, 4},
        Row{"LimitAboveTheQuantity", {"tea", "189.00", "2.000"}, 4, 100, 2},
        Row{"Stickers", {"tea", "189.00", "5.000"}, {}, 8, 2},
        Row{"StickersToTheLast", {"tea", "189.00", "5.000"}, {}, 9, 3},
        Row{"TooFewStickers", {"tea", "189.00", "5.000"}, {}, 2, 0},
        Row{"NoStickers", {"tea", "189.00", "5.000"}, {}, 0, 0},
        Row{"MinimumPrice", {"tea", "100.00", "5.000", "60.00"}, {}, 100, 3},
        Row{"MinimumPriceByAHundredth", {"tea", "100.00", "3.000", "40.01"}, {}, 100, 2},
        Row{"PriceBelowTheDiscount", {"tea", "59.99", "1.000"}, {}, 100, 0},
        Row{"PriceOfTheDiscount", {"tea", "60.00", "1.000"}, {}, 100, 1},
        Row{"MinimumAboveThePrice", {"tea", "100.00", "1.000", "120.00"}, {}, 100, 0},
        Row{"AnotherArticle", {"Tea", "189.00", "2.000"}, {}, 100, 0}),
    nameOf);

class StickersRuleTest : public testing::Test
{
protected:
    /// What the positions have exchanged, in their order.
    std::vector<qint64> units() const
    {
        std::vector<qint64> result;
        for (const CalculatedPosition &position : positions)
            result.push_back(position.exchanged ? position.exchanged->units : 0);
        return result;
    }

    std::vector<qint64> offeredUnits() const
    {
        std::vector<qint64> result;
        for (const CalculatedPosition &position : positions)
            result.push_back(position.offered ? position.offered->units : 0);
        return result;
    }

    const std::vector<StickerOffer> offers
        = {{u"tea"_s, 3, amount("60.00"), {}}, {u"butter"_s, 4, amount("90.00"), {}}};
    Positions positions = calculated({{"tea", "189.00", "2.000"}, {"butter", "219.90", "2.000"},
        {"bread", "45.90", "1.000"}, {"tea", "189.00", "1.000"}});
};

TEST_F(StickersRuleTest, ExchangesNoMoreThanIsClaimed)
{
    EXPECT_EQ(exchangeStickers(positions, {{1, 1}, {2, 2}}, offers, 100).left, 100 - 3 - 8);
    EXPECT_THAT(units(), ElementsAre(1, 2, 0, 0));
    EXPECT_EQ(positions[1].exchanged->stickers(), 8);
    EXPECT_EQ(positions[1].sumDiscounted, amount("259.80"));
}

TEST_F(StickersRuleTest, PassesOverClaimsOnOtherArticlesAndPositions)
{
    EXPECT_EQ(exchangeStickers(positions, {{3, 1}, {9, 1}}, offers, 100).left, 100);
    EXPECT_THAT(units(), ElementsAre(0, 0, 0, 0));
}

TEST_F(StickersRuleTest, ExchangesInTheOrderOfThePositionNumbers)
{
    std::swap(positions.front(), positions.back());
    const StickerSettlement settlement
        = exchangeStickers(positions, {{1, 2}, {2, 1}, {4, 1}}, offers, 10);
    EXPECT_THAT(units(), ElementsAre(0, 1, 0, 2));
    EXPECT_EQ(settlement.left, 0);
    EXPECT_FALSE(settlement.sufficed);
}

TEST_F(StickersRuleTest, GivesWhatIsLeftToALaterPosition)
{
    const StickerSettlement settlement
        = exchangeStickers(positions, {{1, 1}, {2, 1}, {4, 1}}, offers, 6);
    EXPECT_THAT(units(), ElementsAre(1, 0, 0, 1));
    EXPECT_FALSE(settlement.sufficed);
}

TEST_F(StickersRuleTest, SufficesWhereThePositionAndNotTheStickersSetTheBound)
{
    EXPECT_TRUE(exchangeStickers(positions, {{1, 50}}, offers, 6).sufficed);
    EXPECT_THAT(units(), ElementsAre(2, 0, 0, 0));
}

TEST_F(StickersRuleTest, LeavesWhatIsExchangedAlreadyAlone)
{
    exchangeStickers(positions, {{1, 1}}, offers, 100);
    EXPECT_EQ(exchangeStickers(positions, {{1, 2}, {4, 1}}, offers, 100).left, 97);
    EXPECT_THAT(units(), ElementsAre(1, 0, 0, 1));
}

TEST_F(StickersRuleTest, OffersEachPositionWhatItsOfferAloneTakes)
{
    offerStickers(positions, offers, 7);
    EXPECT_THAT(offeredUnits(), ElementsAre(2, 1, 0, 1));
}

TEST_F(StickersRuleTest, OffersNothingForWhatIsExchanged)
{
    exchangeStickers(positions, {{1, 1}}, offers, 100);
    offerStickers(positions, offers, 100);
    EXPECT_THAT(offeredUnits(), ElementsAre(0, 2, 0, 1));
}

TEST_F(StickersRuleTest, CountsTheStickersOfAllPositions)
{
    exchangeStickers(positions, {{1, 2}, {2, 1}}, offers, 100);
    EXPECT_EQ((Calculation{positions, {}}.stickers()), 10);
}

TEST_F(StickersRuleTest, ReckonsWithTheRoomThatDiscountsHaveLeft)
{
    positions[0].sumDiscounted = amount("119.99");
    offerStickers(positions, offers, 100);
    EXPECT_THAT(offeredUnits(), ElementsAre(1, 2, 0, 1));
}

TEST_F(StickersRuleTest, StandsTheGreatestClaimsOnTheDearestOffers)
{
    const std::vector<StickerOffer> dear
        = {{u"tea"_s, std::numeric_limits<int>::max(), amount("0.01"), {}}};
    Positions many = calculated({{"tea", "0.01", "999999999.000"}, {"tea", "0.01", "999999999.000"},
        {"tea", "0.01", "999999999.000"}, {"tea", "0.01", "999999999.000"},
        {"tea", "0.01", "999999999.000"}});
    const StickerClaims claims
        = {{1, 999'999'999}, {2, 999'999'999}, {3, 999'999'999}, {4, 999'999'999}, {5, 1}};
    const StickerSettlement settlement = exchangeStickers(many, claims, dear, 5);
    EXPECT_EQ(settlement.left, 5);
    EXPECT_FALSE(settlement.sufficed);
}

} // namespace
} // namespace emulator

#include "plugin/stickerchoice.h"
#include "plugin/stickersteps.h"
#include "plugin/stickertable.h"
#include "tests/plugin/literaltable.h"
#include "tests/plugin/randomoffers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>

using stickers::Chosen;
using stickers::Offer;
using stickers::Offers;

namespace {

constexpr std::size_t anySteps = 1 << 20;
constexpr double infinite = std::numeric_limits<double>::infinity();

std::string told(const RandomCheque &cheque)
{
    std::string text = "capacity " + std::to_string(cheque.capacity);
    for (const auto &offer : cheque.offers)
        text += "; " + std::to_string(offer.cost) + " for " + std::to_string(offer.value);
    return text;
}

/// Every way to choose, by itself, whatever the size.
struct Way
{
    std::string name;
    std::function<Chosen(const Offers &, int)> choose;
};

Chosen chooseBySteps(const Offers &offers, int capacity)
{
    return stickers::chooseBySteps(offers, capacity, anySteps).value();
}

Chosen chooseWithinLimits(const Offers &offers, int capacity)
{
    return stickers::choose(offers, capacity).chosen;
}

class StickerWays : public testing::TestWithParam<Way>
{
protected:
    static Chosen whenChosen(const Offers &offers, int capacity)
    {
        Chosen chosen = GetParam().choose(offers, capacity);
        EXPECT_EQ(chosen, chooseByLiteralTable(offers, capacity));
        return chosen;
    }
};

INSTANTIATE_TEST_SUITE_P(All, StickerWays,
    testing::Values(Way{"Literal", chooseByLiteralTable}, Way{"Table", stickers::chooseByTable},
        Way{"Steps", chooseBySteps}),
    [](const auto &way) { return way.param.name; });

TEST_P(StickerWays, NothingIsChosenOfNothing)
{
    EXPECT_EQ(whenChosen({}, 10), Chosen());
}

TEST_P(StickerWays, WithoutStickersNothingIsChosen)
{
    EXPECT_EQ(whenChosen({{0, 5.0}, {1, 5.0}}, 0), (Chosen{false, false}));
    EXPECT_EQ(whenChosen({{0, 5.0}, {1, 5.0}}, -1), (Chosen{false, false}));
}

TEST_P(StickerWays, TheGreatestTotalWinsNotTheGreatestOffer)
{
    EXPECT_EQ(whenChosen({{10, 100.0}, {5, 60.0}, {5, 50.0}}, 10), (Chosen{false, true, true}));
}

TEST_P(StickerWays, AnOfferMayUseUpTheBalance)
{
    EXPECT_EQ(whenChosen({{10, 1.0}}, 10), (Chosen{true}));
    EXPECT_EQ(whenChosen({{11, 1.0}}, 10), (Chosen{false}));
}

TEST_P(StickerWays, AnOfferThatCostsLessThanNothingIsNeverTaken)
{
    EXPECT_EQ(whenChosen({{-1, 100.0}, {1, 1.0}}, 10), (Chosen{false, true}));
}

TEST_P(StickerWays, AnOfferThatCostsNothingIsTakenWhileAStickerIsLeft)
{
    EXPECT_EQ(whenChosen({{0, 5.0}, {9, 5.0}}, 10), (Chosen{true, true}));
}

TEST_P(StickerWays, WithNoStickerLeftNotEvenAnOfferThatCostsNothingIsTaken)
{
    EXPECT_EQ(whenChosen({{0, 5.0}, {10, 10.0}}, 10), (Chosen{false, true}));
}

TEST_P(StickerWays, AnOfferThatCostsNothingBehindTheOneThatUsesUpTheBalanceIsTaken)
{
    EXPECT_EQ(whenChosen({{10, 10.0}, {0, 5.0}}, 10), (Chosen{true, true}));
}

TEST_P(StickerWays, KeepingOneStickerForTheFreeOffersCanBeatUsingThemUp)
{
    EXPECT_EQ(whenChosen({{0, 6.0}, {10, 5.0}}, 10), (Chosen{true, false}));
}

TEST_P(StickerWays, OfATieTheFirstIsTaken)
{
    EXPECT_EQ(whenChosen({{5, 10.0}, {5, 10.0}}, 5), (Chosen{true, false}));
    EXPECT_EQ(whenChosen({{5, 10.0}, {2, 6.0}, {3, 4.0}}, 5), (Chosen{true, false, false}));
}

TEST_P(StickerWays, OnTheWayBackAnOfferThatAddsLessThanTheToleranceIsLeftOut)
{
    EXPECT_EQ(whenChosen({{1, 0.0049}}, 10), (Chosen{false}));
    EXPECT_EQ(whenChosen({{5, 10.0}, {5, 10.004}}, 5), (Chosen{true, false}));
}

TEST_P(StickerWays, OnTheWayBackAnOfferThatAddsTheToleranceIsTaken)
{
    EXPECT_EQ(whenChosen({{1, 0.005}}, 10), (Chosen{true}));
    EXPECT_EQ(whenChosen({{5, 0.25}, {5, 0.255}}, 5), (Chosen{false, true}));
}

TEST_P(StickerWays, SmallAdditionsLeftOutMayLoseMoreThanTheTolerance)
{
    EXPECT_EQ(whenChosen({{5, 1.0}, {4, 1.004}, {3, 1.008}, {2, 1.012}}, 5),
        (Chosen{false, false, true, true}));
    EXPECT_EQ(whenChosen({{5, 1.0}, {5, 1.004}, {5, 1.008}, {5, 1.012}}, 5),
        (Chosen{true, false, false, false}));
}

TEST_P(StickerWays, AnOfferWithoutValueIsNotTaken)
{
    EXPECT_EQ(whenChosen({{1, 0.0}, {1, -5.0}}, 10), (Chosen{false, false}));
}

/// The literal table itself is not among these ways.
class RandomCheques : public testing::TestWithParam<Way>
{
protected:
    static void thenEqualsTheLiteralTable(std::uint32_t seed, int cases, const ChequeSize &size)
    {
        Dice dice(seed);
        for (const OfferKind &kind : offerKinds())
            for (int number = 0; number < cases; ++number) {
                const auto cheque = rollCheque(dice, kind, size);
                ASSERT_EQ(GetParam().choose(cheque.offers, cheque.capacity),
                    chooseByLiteralTable(cheque.offers, cheque.capacity))
                    << kind.name << " " << number << ": " << told(cheque);
            }
    }
};

INSTANTIATE_TEST_SUITE_P(Of, RandomCheques,
    testing::Values(Way{"Table", stickers::chooseByTable}, Way{"Steps", chooseBySteps},
        Way{"Choice", chooseWithinLimits}),
    [](const auto &way) { return way.param.name; });

// Nine kinds of cheques each: 225 000 cases in all for each way.

TEST_P(RandomCheques, SmallChequesAreChosenAsByTheLiteralTable)
{
    thenEqualsTheLiteralTable(1, 24000, {8, 24});
}

TEST_P(RandomCheques, ChequesWithManyOffersAreChosenAsByTheLiteralTable)
{
    thenEqualsTheLiteralTable(2, 900, {30, 60});
}

TEST_P(RandomCheques, LargeBalancesAreChosenAsByTheLiteralTable)
{
    thenEqualsTheLiteralTable(3, 100, {24, 900});
}

class StickerChoice : public testing::Test
{
protected:
    static constexpr int stickersForAll = 1'000'000'000;

    /// Worth the same per sticker, so that hardly a step can be dropped.
    static Offers hardOffers(int count)
    {
        Offers offers;
        for (int number = 0; number < count; ++number)
            offers.push_back({(qint64{1} << 30) / (number + 3), 1e6 / (number + 3)});
        return offers;
    }
    static stickers::ChoiceLimits noLimits() { return {0, 0, 0, 0}; }
    static void thenInOrder(const stickers::Choice &choice, const Chosen &expected)
    {
        EXPECT_FALSE(choice.isBest);
        EXPECT_EQ(choice.chosen, expected);
    }
};

TEST_F(StickerChoice, ALargeBalanceNeedsNoTable)
{
    auto limits = noLimits();
    limits.steps = 100;
    const auto choice = stickers::choose(
        {{600'000'000, 10.0}, {500'000'000, 9.0}, {500'000'000, 8.0}}, stickersForAll, limits);
    EXPECT_TRUE(choice.isBest);
    EXPECT_EQ(choice.chosen, (Chosen{false, true, true}));
}

TEST_F(StickerChoice, TheLargestCapacityDoesNotOverflow)
{
    constexpr int most = std::numeric_limits<int>::max();
    const auto choice
        = stickers::choose({{most, 10.0}, {most, 9.0}, {most - 1, 9.5}, {1, 1.0}}, most);
    EXPECT_TRUE(choice.isBest);
    EXPECT_EQ(choice.chosen, (Chosen{false, false, true, true}));
}

TEST_F(StickerChoice, AsManyStepsAsTheLimitAreHeld)
{
    const Offers offers{{1, 10.0}, {1, 9.0}};
    EXPECT_TRUE(stickers::chooseBySteps(offers, 1, 4));
    EXPECT_FALSE(stickers::chooseBySteps(offers, 1, 3));
}

TEST_F(StickerChoice, TooManyStepsAreATableWhereOneFits)
{
    auto limits = noLimits();
    limits.tableCells = qint64{2} * (10 + 1);
    limits.tableStickers = 10;
    const Offers offers{{10, 10.0}, {5, 9.0}};
    EXPECT_TRUE(stickers::choose(offers, 10, limits).isBest);
    limits.tableStickers = 9;
    EXPECT_FALSE(stickers::choose(offers, 10, limits).isBest);
    limits.tableStickers = 10;
    limits.tableCells -= 1;
    EXPECT_FALSE(stickers::choose(offers, 10, limits).isBest);
}

TEST_F(StickerChoice, ATableOfAsManyCellsAsAreQuickIsComputed)
{
    auto limits = noLimits();
    limits.smallTable = qint64{2} * (10 + 1);
    const Offers offers{{10, 10.0}, {5, 9.0}};
    EXPECT_TRUE(stickers::choose(offers, 10, limits).isBest);
    limits.smallTable -= 1;
    EXPECT_FALSE(stickers::choose(offers, 10, limits).isBest);
}

TEST_F(StickerChoice, TheLimitsKeepMemorySmall)
{
    constexpr std::size_t bitsPerByte = 8;
    constexpr std::size_t mebibyte = std::size_t{1024} * 1024;
    const stickers::ChoiceLimits limits;
    EXPECT_EQ(limits.steps * (sizeof(qint64) + sizeof(double)), 8 * mebibyte);
    EXPECT_EQ(static_cast<std::size_t>(limits.tableCells), 16 * mebibyte * bitsPerByte);
    EXPECT_EQ(static_cast<std::size_t>(limits.tableStickers) * sizeof(double), 32 * mebibyte);
    EXPECT_EQ(limits.smallTable, 256 * 1024);
}

TEST_F(StickerChoice, BeyondEveryLimitTheLastStickerIsStillSpent)
{
    thenInOrder(stickers::choose({{1, 1.0}}, 1, noLimits()), {true});
}

TEST_F(StickerChoice, BeyondEveryLimitOffersAreTakenInTheirOrderWhileTheyFit)
{
    const auto choice = stickers::choose(
        {{11, 90.0}, {6, 50.0}, {5, 49.0}, {-1, 9.0}, {0, 8.0}, {4, 4.0}, {0, 1.0}}, 10,
        noLimits());
    thenInOrder(choice, {false, true, false, false, true, true, false});
}

TEST_F(StickerChoice, BeyondEveryLimitWhatAddsNothingIsNotTaken)
{
    thenInOrder(
        stickers::choose({{1, 0.005}, {1, 0.0049}, {1, -1.0}, {1, std::nan("")}}, 10, noLimits()),
        {true, false, false, false});
}

TEST_F(StickerChoice, HardOffersUnderAHugeBalanceEndInTheirOrder)
{
    const auto choice = stickers::choose(hardOffers(60), stickersForAll);
    EXPECT_FALSE(choice.isBest);
    EXPECT_TRUE(choice.chosen.front());
}

TEST_F(StickerChoice, ValuesThatAreNotFiniteAreLeftToTheTable)
{
    auto limits = noLimits();
    limits.tableCells = 1000;
    limits.tableStickers = 100;
    for (const double odd : {infinite, -infinite, std::nan("")}) {
        const Offers offers{{3, odd}, {5, 4.0}, {5, 3.0}, {1, 1.0}};
        for (const int capacity : {1, 4, 9, 14}) {
            SCOPED_TRACE(testing::Message() << odd << " with " << capacity);
            EXPECT_EQ(stickers::choose(offers, capacity, limits).chosen,
                chooseByLiteralTable(offers, capacity));
        }
    }
}

TEST_F(StickerChoice, WhatNeverChangesATotalIsNotLeftToTheTable)
{
    auto limits = noLimits();
    limits.steps = anySteps;
    for (const Offer &inert :
        {Offer{1, -infinite}, Offer{-1, infinite}, Offer{11, infinite}, Offer{11, std::nan("")}}) {
        SCOPED_TRACE(testing::Message() << inert.value << " for " << inert.cost);
        const auto choice = stickers::choose({inert, {6, 5.0}, {5, 9.0}}, 10, limits);
        EXPECT_TRUE(choice.isBest);
        EXPECT_EQ(choice.chosen, Chosen({false, false, true}));
    }
}

TEST_F(StickerChoice, ASumThatIsNotFiniteIsLeftToTheTable)
{
    auto limits = noLimits();
    limits.steps = anySteps;
    EXPECT_FALSE(stickers::choose({{3, 1.7e308}, {5, 1.7e308}}, 10, limits).isBest);
}

} // namespace

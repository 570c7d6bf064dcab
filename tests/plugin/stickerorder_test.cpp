#include "plugin/stickerorder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>

using stickers::Offer;
using stickers::Offers;

namespace {

using Order = std::vector<std::size_t>;

TEST(StickerOrder, TheGreaterValueComesFirst)
{
    EXPECT_EQ(stickers::profitOrder({{1, 5.0}, {9, 7.0}, {1, 6.0}}), (Order{1, 2, 0}));
}

TEST(StickerOrder, OfEqualValuesTheCheaperComesFirst)
{
    EXPECT_EQ(stickers::profitOrder({{6, 10.0}, {4, 10.0}, {5, 10.0}}), (Order{1, 2, 0}));
}

TEST(StickerOrder, ValuesAreEqualWithinTheTolerance)
{
    EXPECT_EQ(stickers::profitOrder({{6, 10.004}, {5, 10.0}}), (Order{1, 0}));
    EXPECT_EQ(stickers::profitOrder({{5, 10.0}, {6, 10.006}}), (Order{1, 0}));
}

TEST(StickerOrder, AtTheToleranceNeitherComesFirst)
{
    const Offer dear{6, 0.005};
    const Offer cheap{5, 0.0};
    EXPECT_FALSE(stickers::isMoreProfitable(dear, cheap));
    EXPECT_FALSE(stickers::isMoreProfitable(cheap, dear));
}

TEST(StickerOrder, EqualOffersKeepTheirOrder)
{
    const Order order = stickers::profitOrder(Offers(9, Offer{1, 1.0}));
    Order expected(9);
    std::iota(expected.begin(), expected.end(), std::size_t{0});
    EXPECT_EQ(order, expected);
}

TEST(StickerOrder, EqualOffersKeepTheirOrderAmongOthers)
{
    Offers offers;
    for (int number = 0; number < 21; ++number)
        offers.push_back({1, static_cast<double>(number % 3)});
    const Order order = stickers::profitOrder(offers);
    for (std::size_t place = 1; place < order.size(); ++place)
        if (offers[order[place - 1]].value == offers[order[place]].value)
            EXPECT_LT(order[place - 1], order[place]);
        else
            EXPECT_GT(offers[order[place - 1]].value, offers[order[place]].value);
}

TEST(StickerOrder, OffersThatPrecedeEachOtherInACircleAreStillAllThere)
{
    // Each is equal in value to the next and cheaper, the last has more value than the first.
    const Offers circle{{3, 1.000}, {2, 1.004}, {1, 1.008}};
    for (int repeats : {1, 2, 5, 100}) {
        Offers offers;
        for (int number = 0; number < repeats; ++number)
            offers.insert(offers.end(), circle.begin(), circle.end());
        Order order = stickers::profitOrder(offers);
        std::sort(order.begin(), order.end());
        for (std::size_t index = 0; index < offers.size(); ++index)
            ASSERT_EQ(order[index], index);
    }
}

TEST(StickerOrder, NoOffersHaveNoOrder)
{
    EXPECT_EQ(stickers::profitOrder({}), Order());
    EXPECT_EQ(stickers::profitOrder({{1, 1.0}}), Order{0});
}

} // namespace

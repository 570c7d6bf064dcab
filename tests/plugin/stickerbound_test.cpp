// How much the offers below a row can still add.

#include "plugin/stickerbound.h"

#include <gtest/gtest.h>

namespace {

using stickers::Offers;
using stickers::RestBound;

// 3, 2 and 1 of value for a sticker, in another order.
const Offers offers{{10, 20.0}, {5, 15.0}, {4, 4.0}};

TEST(StickerBound, WhatCanBePaidForIsTakenAsAWhole)
{
    RestBound bound(offers);
    bound.startRow(0);
    EXPECT_EQ(bound.most(19), 39.0);
    EXPECT_EQ(bound.reached(), 39.0);
    EXPECT_EQ(bound.spent(), 19);
}

TEST(StickerBound, TheLastOfferIsTakenInPart)
{
    RestBound bound(offers);
    bound.startRow(0);
    EXPECT_EQ(bound.most(17), 35.0 + 2.0);
    EXPECT_EQ(bound.reached(), 35.0);
    EXPECT_EQ(bound.spent(), 15);
    EXPECT_EQ(bound.most(8), 15.0 + 6.0);
    EXPECT_EQ(bound.reached(), 15.0);
    EXPECT_EQ(bound.spent(), 5);
    EXPECT_EQ(bound.most(0), 0.0);
    EXPECT_EQ(bound.spent(), 0);
}

TEST(StickerBound, OnlyTheOffersFromTheRowOnCount)
{
    RestBound bound(offers);
    bound.startRow(1);
    EXPECT_EQ(bound.most(100), 19.0);
    bound.startRow(2);
    EXPECT_EQ(bound.most(100), 4.0);
    EXPECT_EQ(bound.most(1), 1.0);
    bound.startRow(3);
    EXPECT_EQ(bound.most(100), 0.0);
}

TEST(StickerBound, WhatCostsNothingComesFirst)
{
    const Offers withAFreeOne{{1, 100.0}, {0, 2.0}};
    RestBound bound(withAFreeOne);
    bound.startRow(0);
    EXPECT_EQ(bound.most(0), 2.0);
    EXPECT_EQ(bound.reached(), 2.0);
}

TEST(StickerBound, OfEqualWorthTheFirstComesFirst)
{
    const Offers equal{{3, 3.0}, {5, 5.0}};
    RestBound bound(equal);
    bound.startRow(0);
    EXPECT_EQ(bound.most(4), 4.0);
    EXPECT_EQ(bound.reached(), 3.0);
}

} // namespace

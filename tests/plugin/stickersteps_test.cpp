// How many steps the choice has to hold: what is dropped too seldom changes no choice, only how
// long it takes and how much memory.

#include "plugin/stickersteps.h"
#include "tests/plugin/randomoffers.h"

#include <gtest/gtest.h>

#include <map>

namespace {

using stickers::Offers;

/// The smallest limit that suffices.
std::size_t stepsHeld(const Offers &offers, int capacity)
{
    std::size_t limit = 1;
    while (!stickers::chooseBySteps(offers, capacity, limit))
        ++limit;
    return limit;
}

TEST(StickerSteps, OfColumnsThatTheRestCannotReachDownToOnlyTheLastStepIsHeld)
{
    // One in each row, and the one of no offers.
    EXPECT_EQ(stepsHeld({{1, 1.0}, {2, 5.0}}, 100), 3u);
}

// Fewer would be welcome: then these are the figures to change.
TEST(StickerSteps, NoMoreAreHeldThanEver)
{
    constexpr std::uint32_t seed = 20'260'305;
    constexpr int cheques = 20;
    std::map<std::string, std::size_t> held;
    for (const OfferKind &kind : offerKinds()) {
        Dice dice(seed);
        for (int number = 0; number < cheques; ++number) {
            const RandomCheque cheque = rollCheque(dice, kind, {14, 400});
            held[kind.name] += stepsHeld(cheque.offers, cheque.capacity);
        }
    }
    EXPECT_EQ(held,
        (std::map<std::string, std::size_t>{{"few whole values", 196}, {"kopecks", 172},
            {"millionths", 202}, {"about the tolerance", 399}, {"ties but for the tolerance", 332},
            {"hardly off kopecks", 200}, {"thousandths about kopecks", 498},
            {"worth the same per sticker", 747}, {"swallowed by rounding", 225}}));
}

} // namespace

// The luck of a power cut: all of it happens, and the same again for the same seed.

#include "tests/powercut/chance.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

namespace powercut {

namespace {

constexpr quint32 seeds = 300;

TEST(ChanceTest, IsTheSameForTheSameSeed)
{
    for (quint32 seed = 0; seed < seeds; ++seed) {
        Chance one(seed);
        Chance other(seed);
        EXPECT_EQ(one.ofWrite(), other.ofWrite());
        EXPECT_EQ(one.ofChange(), other.ofChange());
        EXPECT_EQ(one.ofSector(), other.ofSector());
        EXPECT_EQ(one.ofRow(7), other.ofRow(7));
    }
}

TEST(ChanceTest, GivesEveryFate)
{
    std::set<Fate> ofWrite;
    std::set<bool> ofChange;
    std::set<bool> ofSector;
    std::set<std::size_t> ofRow;
    for (quint32 seed = 0; seed < seeds; ++seed) {
        Chance chance(seed);
        ofWrite.insert(chance.ofWrite());
        ofChange.insert(chance.ofChange());
        ofSector.insert(chance.ofSector());
        ofRow.insert(chance.ofRow(3));
    }
    EXPECT_EQ(ofWrite, std::set({Fate::Kept, Fate::Lost, Fate::Torn}));
    EXPECT_EQ(ofChange.size(), 2U);
    EXPECT_EQ(ofSector.size(), 2U);
    EXPECT_EQ(ofRow, std::set<std::size_t>({0, 1, 2, 3}));
}

TEST(ChanceTest, LosesAllAndKeepsAllAboutAThirdOfTheTime)
{
    constexpr int writes = 20;
    std::map<Fate, quint32> unanimous;
    for (quint32 seed = 0; seed < seeds; ++seed) {
        Chance chance(seed);
        std::set<Fate> fates;
        for (int write = 0; write < writes; ++write)
            fates.insert(chance.ofWrite());
        if (fates.size() == 1)
            ++unanimous[*fates.begin()];
    }
    EXPECT_NEAR(unanimous[Fate::Lost], seeds / 3, seeds / 10);
    EXPECT_NEAR(unanimous[Fate::Kept], seeds / 3, seeds / 10);
    EXPECT_EQ(unanimous.count(Fate::Torn), 0U);
}

} // namespace

} // namespace powercut

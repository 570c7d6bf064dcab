#include "emulator/recording/nearest.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace emulator {
namespace {

RequestKey soft(const QString &card, const QStringList &content)
{
    return {u"soft"_s, card, content, {}};
}

const std::vector<RecordedRequest> recorded = {
    {u"000001-balance"_s, {u"balance"_s, u"A"_s, {}, {}}},
    {u"000002-soft"_s, soft(u"A"_s, {u"bread"_s})},
    {u"000003-soft"_s, soft(u"A"_s, {u"milk"_s, u"tea"_s})},
    {u"000004-soft"_s, soft(u"A"_s, {u"tea"_s, u"milk"_s})},
    {u"000005-soft"_s, soft(u"B"_s, {u"bread"_s})},
    {u"000006-unreadable"_s, {{}, {}, {}, "junk"}},
};

TEST(NearestTest, OfTheSameCardIsTheOneWithMostInCommon)
{
    EXPECT_EQ(nearestTo(soft(u"A"_s, {u"milk"_s, u"tea"_s, u"salt"_s}), recorded),
        u"nearest is 000003-soft with the same operation and card, but milk; tea");
    EXPECT_EQ(nearestTo(soft(u"A"_s, {u"salt"_s}), recorded),
        u"nearest is 000002-soft with the same operation and card, but bread");
}

TEST(NearestTest, EqualPositionsCountAsOftenAsTheyAreThere)
{
    EXPECT_EQ(nearestTo(soft(u"A"_s, {u"bread"_s, u"bread"_s, u"milk"_s, u"tea"_s}), recorded),
        u"nearest is 000003-soft with the same operation and card, but milk; tea");
    EXPECT_EQ(nearestTo(soft(u"A"_s, {u"bread"_s, u"bread"_s, u"milk"_s}), recorded),
        u"nearest is 000002-soft with the same operation and card, but bread");
}

TEST(NearestTest, OfOtherCardsNamesThem)
{
    EXPECT_EQ(nearestTo(soft(u"C"_s, {u"bread"_s}), recorded),
        u"nearest is 000002-soft: soft was recorded only for card A, B");
    EXPECT_EQ(nearestTo({u"balance"_s, u"C"_s, {}, {}}, recorded),
        u"nearest is 000001-balance: balance was recorded only for card A");
}

TEST(NearestTest, OfManyCardsNamesTheFirst)
{
    std::vector<RecordedRequest> many;
    for (const char *card : {"%2", "2", "3", "4", "5", "6", "7"})
        many.push_back({u"000001-soft"_s, soft(QString::fromLatin1(card), {})});
    EXPECT_EQ(nearestTo(soft(u"C"_s, {}), many),
        u"nearest is 000001-soft: soft was recorded only for card %2, 2, 3, 4, 5 and 2 more");
    many.resize(5);
    EXPECT_EQ(nearestTo(soft(u"C"_s, {}), many),
        u"nearest is 000001-soft: soft was recorded only for card %2, 2, 3, 4, 5");
}

TEST(NearestTest, OfAnotherOperationIsNothing)
{
    EXPECT_EQ(nearestTo({u"fiscal"_s, u"A"_s, {u"bread"_s}, {}}, recorded),
        u"nothing like it was recorded");
}

TEST(NearestTest, OfWhatCannotBeReadIsOneLikeIt)
{
    EXPECT_EQ(nearestTo({{}, {}, {}, "other"}, recorded),
        u"nearest is 000006-unreadable, which cannot be read either, but has other bytes");
}

} // namespace
} // namespace emulator

// When a message may be sent again.

#include "host/queue/backoff.h"

#include <QTimeZone>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <ostream>

using namespace std::chrono_literals;

namespace {

constexpr double almostOne = 0x1.fffffffffffffp-1;
constexpr int mostAttempts = std::numeric_limits<int>::max();

const QDateTime now(QDate(2024, 3, 1), QTime(12, 0), QTimeZone::utc());

QDateTime later(std::chrono::milliseconds wait)
{
    return now.addDuration(wait);
}

struct Wait
{
    const char *name;
    int attempts;
    std::chrono::milliseconds longest;
};

void PrintTo(const Wait &row, std::ostream *out)
{
    *out << row.name;
}

class BackoffTest : public testing::TestWithParam<Wait>
{ };

TEST_P(BackoffTest, TheLongestWaitDoublesUpToTheCap)
{
    EXPECT_EQ(backoff::longestWaitAfter(GetParam().attempts), GetParam().longest);
}

TEST_P(BackoffTest, WithoutLuckItIsSentAgainAtOnce)
{
    EXPECT_EQ(backoff::nextAttempt(now, now, GetParam().attempts, 0), now);
}

TEST_P(BackoffTest, TheWaitIsSpreadEvenlyOverTheLongestOne)
{
    EXPECT_EQ(
        backoff::nextAttempt(now, now, GetParam().attempts, 0.5), later(GetParam().longest / 2));
}

TEST_P(BackoffTest, TheWaitIsTheSameWithoutAClock)
{
    EXPECT_EQ(backoff::waitAfter(GetParam().attempts, 0), 0ms);
    EXPECT_EQ(backoff::waitAfter(GetParam().attempts, 0.5), GetParam().longest / 2);
}

TEST_P(BackoffTest, TheLongestWaitItselfIsNeverReached)
{
    const auto unreached = GetParam().longest > 0ms ? 1ms : 0ms;
    EXPECT_EQ(backoff::nextAttempt(now, now, GetParam().attempts, almostOne),
        later(GetParam().longest - unreached));
}

INSTANTIATE_TEST_SUITE_P(Attempts, BackoffTest,
    testing::Values(Wait{"LessThanNone", std::numeric_limits<int>::min(), 0s}, Wait{"None", 0, 0s},
        Wait{"One", 1, 5s}, Wait{"Two", 2, 10s}, Wait{"Three", 3, 20s}, Wait{"Four", 4, 40s},
        Wait{"Five", 5, 80s}, Wait{"Six", 6, 160s}, Wait{"Seven", 7, 320s}, Wait{"Eight", 8, 640s},
        Wait{"NineReachTheCap", 9, 15min}, Wait{"Ten", 10, 15min},
        Wait{"AsManyAsDoublingsOfAnInt", 32, 15min}, Wait{"AsManyAsDoublingsOfALongInt", 64, 15min},
        Wait{"TheMostButOne", mostAttempts - 1, 15min}, Wait{"TheMost", mostAttempts, 15min}),
    [](const auto &row) { return row.param.name; });

TEST(BackoffClockTest, TheWaitCountsFromTheLastAttempt)
{
    EXPECT_EQ(backoff::nextAttempt(now, now.addSecs(-4), 2, 0.5), now.addSecs(1));
}

TEST(BackoffClockTest, AnAttemptThatTookLongerThanTheWaitIsRepeatedAtOnce)
{
    EXPECT_LE(backoff::nextAttempt(now, now.addSecs(-15), 1, almostOne), now);
}

TEST(BackoffClockTest, ALastAttemptInTheFutureCountsAsNow)
{
    EXPECT_EQ(backoff::nextAttempt(now, now.addSecs(3600), 2, 0.5), later(5s));
    EXPECT_EQ(backoff::nextAttempt(now, later(1ms), 2, 0.5), later(5s));
}

TEST(BackoffClockTest, AfterAYearItIsSentAtOnce)
{
    EXPECT_LE(backoff::nextAttempt(now.addYears(1), now, mostAttempts, almostOne), now.addYears(1));
}

TEST(BackoffClockTest, WithoutALastAttemptTheWaitCountsFromNow)
{
    EXPECT_EQ(backoff::nextAttempt(now, {}, 1, 0.5), later(2500ms));
}

TEST(BackoffClockTest, AMessageThatWasNeverTriedIsSentAtOnce)
{
    EXPECT_EQ(backoff::nextAttempt(now, now.addSecs(-3600), 0, 0.5), now);
}

TEST(BackoffChanceTest, OutsideItsRangeItCountsAsTheNearerEnd)
{
    EXPECT_EQ(backoff::nextAttempt(now, now, 1, -0.5), now);
    EXPECT_EQ(backoff::nextAttempt(now, now, 1, 1.5), later(5s));
    EXPECT_EQ(
        backoff::nextAttempt(now, now, 1, std::numeric_limits<double>::infinity()), later(5s));
    EXPECT_EQ(backoff::nextAttempt(now, now, 1, std::nan("")), now);
}

TEST(BackoffDueTest, IsDueFromTheNotedTimeOn)
{
    EXPECT_TRUE(backoff::isDue(now, now));
    EXPECT_TRUE(backoff::isDue(now, now.addYears(-1)));
    EXPECT_TRUE(backoff::isDue(now, {}));
    EXPECT_FALSE(backoff::isDue(now, later(1ms)));
}

// What was noted at 13:00 for 13:10 is sent when it is 12:00 again.
TEST(BackoffDueTest, ATimeThatNoWaitReachesWasNotedByAClockThatRanAhead)
{
    EXPECT_FALSE(backoff::isDue(now, later(15min)));
    EXPECT_TRUE(backoff::isDue(now, later(15min + 1ms)));
    EXPECT_TRUE(backoff::isDue(now, now.addSecs(4200)));
    EXPECT_TRUE(backoff::isDue(now, now.addYears(1)));
}

} // namespace

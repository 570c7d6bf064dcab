// Some kills with the other tests; the long run is tools/killtest.

#include "tests/kills/run.h"

#include <gtest/gtest.h>

#include <iostream>

namespace kills {

namespace {

TEST(KillsTest, TwentyFiveKillsBreakNoLaw)
{
    const Plan plan{40, 25, 20'241'121, {}};
    const auto report = run(plan, true, [](const Progress &) {});
    std::cout << markdown(report).toStdString();
    for (const QString &sentence : report.sentences)
        ADD_FAILURE() << sentence.toStdString();
    EXPECT_EQ(report.tally.kills(), 25);
    // A run in which nothing could go wrong shows nothing.
    EXPECT_GT(report.tally.sales, 0);
    EXPECT_GT(report.tally.returns, 0);
    EXPECT_GT(report.tally.messages, 0);
    EXPECT_GT(report.tally.answersLostActedUpon, 0);
    EXPECT_GT(report.tally.answersLostNotActedUpon, 0);
    EXPECT_FALSE(report.tally.tillsKilled.empty());
    EXPECT_FALSE(report.tally.deliverersKilled.empty());
}

} // namespace

} // namespace kills

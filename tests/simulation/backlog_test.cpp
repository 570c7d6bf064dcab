// What a till has to send, and what tills enqueue during an outage.

#include "simulation/backlogs.h"

#include <gtest/gtest.h>

using namespace simulation;
using namespace std::chrono_literals;

namespace {

class BacklogTest : public testing::Test
{
protected:
    BacklogTest()
    {
        for (const Moment enqueued : {10ms, 20ms, 30ms})
            m_backlog.append(enqueued);
    }

    Backlog m_backlog;
};

TEST_F(BacklogTest, MessagesAreTakenInTheirOrder)
{
    EXPECT_EQ(m_backlog.take(50ms, 0), 0U);
    EXPECT_EQ(m_backlog.take(50ms, 0), 1U);
    EXPECT_EQ(m_backlog.take(50ms, 0), 2U);
    EXPECT_EQ(m_backlog.take(50ms, 0), std::nullopt);
}

TEST_F(BacklogTest, OneThatIsStillToComeCannotBeTaken)
{
    EXPECT_EQ(m_backlog.take(9ms, 0), std::nullopt);
    EXPECT_EQ(m_backlog.take(10ms, 0), 0U);
    EXPECT_EQ(m_backlog.take(10ms, 0), std::nullopt);
}

TEST_F(BacklogTest, APassDoesNotGoBack)
{
    EXPECT_EQ(m_backlog.take(50ms, 1), 1U);
}

TEST_F(BacklogTest, OneThatWaitsIsPassedOver)
{
    m_backlog.noteFailure(*m_backlog.take(20ms, 0), 100ms);

    EXPECT_EQ(m_backlog.attempts(0), 1);
    EXPECT_EQ(m_backlog.take(99ms, 0), 1U);
    EXPECT_EQ(m_backlog.take(100ms, 0), 0U);
}

TEST_F(BacklogTest, TheFirstDueIsTheEarliestOfAll)
{
    EXPECT_EQ(m_backlog.firstDue(), 10ms);
    m_backlog.noteFailure(*m_backlog.take(10ms, 0), 25ms);
    EXPECT_EQ(m_backlog.firstDue(), 20ms);
    m_backlog.noteDelivered(*m_backlog.take(20ms, 0));
    EXPECT_EQ(m_backlog.firstDue(), 25ms);
}

TEST_F(BacklogTest, WhatIsInHandIsNotDue)
{
    for (int i = 0; i < 3; ++i)
        ASSERT_TRUE(m_backlog.take(50ms, 0));

    EXPECT_EQ(m_backlog.firstDue(), std::nullopt);
}

TEST_F(BacklogTest, DeliveredMessagesAreGone)
{
    m_backlog.noteDelivered(*m_backlog.take(50ms, 1));
    EXPECT_EQ(m_backlog.undelivered(), 2U);
    m_backlog.noteDelivered(*m_backlog.take(50ms, 0));
    EXPECT_EQ(m_backlog.undelivered(), 1U);
    EXPECT_EQ(m_backlog.take(50ms, 0), 2U);
    EXPECT_EQ(m_backlog.take(50ms, 0), std::nullopt);
}

class BacklogsTest : public testing::Test
{
protected:
    static std::vector<std::size_t> sizes(std::uint64_t seed)
    {
        Scenario scenario;
        scenario.tills = 2000;
        scenario.outage = 2h;
        scenario.chequesPerHour = 30;
        scenario.seed = seed;
        std::vector<std::size_t> all;
        for (const Backlog &backlog : backlogsOf(scenario))
            all.push_back(backlog.undelivered());
        return all;
    }
};

TEST_F(BacklogsTest, TheSameSeedGivesTheSameBacklogs)
{
    EXPECT_EQ(sizes(1), sizes(1));
    EXPECT_NE(sizes(1), sizes(2));
}

// 60 on average; with that many tills and Poisson's spread of 60 the mean is within 0.9 of it.
TEST_F(BacklogsTest, TillsCloseAsManyChequesAsTheRateSays)
{
    double sum = 0;
    for (const std::size_t size : sizes(1))
        sum += static_cast<double>(size);
    EXPECT_NEAR(sum / 2000, 60, 0.9);
}

TEST_F(BacklogsTest, ChequesAreClosedDuringTheOutage)
{
    Scenario scenario;
    scenario.tills = 1;
    scenario.outage = 1h;
    scenario.chequesPerHour = 1000;
    Backlog backlog = backlogsOf(scenario).front();

    std::size_t before = 0;
    while (backlog.take(1h - 1ms, 0))
        ++before;
    EXPECT_EQ(before, backlog.undelivered());
}

} // namespace

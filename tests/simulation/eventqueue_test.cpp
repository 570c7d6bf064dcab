// What happens next in virtual time.

#include "simulation/eventqueue.h"

#include <gmock/gmock.h>

#include <random>

using namespace simulation;
using namespace std::chrono_literals;

namespace {

class EventQueueTest : public testing::Test
{
protected:
    /// Who acts, until nothing is planned.
    std::vector<int> order()
    {
        std::vector<int> actors;
        while (const auto event = m_queue.next())
            actors.push_back(event->actor);
        return actors;
    }

    EventQueue m_queue{1000};
};

TEST_F(EventQueueTest, WithoutPlansNothingHappens)
{
    EXPECT_FALSE(m_queue.next());
}

TEST_F(EventQueueTest, EventsComeInTheOrderOfTheirMoments)
{
    m_queue.plan(0, 20ms);
    m_queue.plan(1, 5ms);
    m_queue.plan(2, 10ms);

    EXPECT_EQ(order(), (std::vector{1, 2, 0}));
}

TEST_F(EventQueueTest, AnEventTellsItsMoment)
{
    m_queue.plan(7, 1234ms);

    const auto event = m_queue.next();
    ASSERT_TRUE(event);
    EXPECT_EQ(event->at, 1234ms);
    EXPECT_EQ(event->actor, 7);
}

TEST_F(EventQueueTest, EventsOfOneMomentComeInTheOrderOfPlanning)
{
    for (const int actor : {3, 1, 2, 0})
        m_queue.plan(actor, 5ms);

    EXPECT_EQ(order(), (std::vector{3, 1, 2, 0}));
}

TEST_F(EventQueueTest, WhatIsPlannedForThePresentComesBehindWhatWasPlannedForItBefore)
{
    m_queue.plan(0, 5ms);
    m_queue.plan(1, 5ms);
    ASSERT_EQ(m_queue.next()->actor, 0);
    m_queue.plan(0, 5ms);

    EXPECT_EQ(order(), (std::vector{1, 0}));
}

TEST_F(EventQueueTest, AMomentThatHasPassedCountsAsThePresent)
{
    m_queue.plan(0, 50ms);
    ASSERT_TRUE(m_queue.next());
    m_queue.plan(0, 10ms);

    EXPECT_EQ(m_queue.next()->at, 50ms);
}

TEST_F(EventQueueTest, FarEventsKeepTheirOrderToo)
{
    m_queue.plan(0, 10h);
    m_queue.plan(1, 9h);
    m_queue.plan(2, 10h);
    m_queue.plan(3, 1ms);

    EXPECT_EQ(order(), (std::vector{3, 1, 0, 2}));
}

// Planned while it was far, so before the one that was planned when it was near.
TEST_F(EventQueueTest, AFarEventComesBeforeOneThatWasPlannedLaterForItsMoment)
{
    m_queue.plan(0, 1h);
    m_queue.plan(1, 59min);
    ASSERT_EQ(m_queue.next()->actor, 1);
    m_queue.plan(1, 1h);

    EXPECT_EQ(order(), (std::vector{0, 1}));
}

TEST_F(EventQueueTest, AThousandEventsAtRandomComeInOrder)
{
    std::mt19937 random(1);
    std::uniform_int_distribution<int> moment(0, 5'000'000);
    for (int actor = 0; actor < 1000; ++actor)
        m_queue.plan(actor, Moment(moment(random)));

    std::vector<Moment> moments;
    while (const auto event = m_queue.next())
        moments.push_back(event->at);
    EXPECT_EQ(moments.size(), 1000U);
    EXPECT_TRUE(std::is_sorted(moments.begin(), moments.end()));
}

} // namespace

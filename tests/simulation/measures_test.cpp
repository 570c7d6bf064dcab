// What is counted.

#include "simulation/measures.h"

#include <gmock/gmock.h>

using namespace simulation;
using namespace std::chrono_literals;

namespace {

/// The service returns at 10 s; tills with two, one, one and no message.
class MeasuresTest : public testing::Test
{
protected:
    static Measures measuresOf(const std::vector<int> &messages)
    {
        std::vector<Backlog> backlogs(messages.size());
        for (std::size_t till = 0; till < messages.size(); ++till)
            for (int i = 0; i < messages[till]; ++i)
                backlogs[till].append(0ms);
        return {backlogs, 10s};
    }
    void whenAllIsDelivered()
    {
        m_measures.noteDelivery(1, 11s, true);
        m_measures.noteDelivery(0, 12s, false);
        m_measures.noteDelivery(0, 14s, true);
        m_measures.noteDelivery(2, 18s, true);
    }

    Measures m_measures = measuresOf({2, 1, 1, 0});
};

TEST_F(MeasuresTest, CountsBySecondSinceTheReturn)
{
    for (const Moment at : {10s + 0ms, 10s + 999ms, 12s + 0ms})
        m_measures.noteRequest(at, false);
    m_measures.noteDelivery(0, 11s, false);

    EXPECT_THAT(m_measures.requestsBySecond(), testing::ElementsAre(2, 0, 1));
    EXPECT_THAT(m_measures.deliveredBySecond(), testing::ElementsAre(0, 1));
    EXPECT_EQ(m_measures.peak(), 2);
}

TEST_F(MeasuresTest, TellsRefusedAndWastedRequests)
{
    for (int i = 0; i < 8; ++i)
        m_measures.noteRequest(10s, i < 2);
    whenAllIsDelivered();

    EXPECT_EQ(m_measures.requests(), 8);
    EXPECT_DOUBLE_EQ(m_measures.refusedShare(), 0.25);
    EXPECT_DOUBLE_EQ(m_measures.wastedPerMessage(), 1);
}

TEST_F(MeasuresTest, WithoutRequestsThereAreNoShares)
{
    EXPECT_EQ(m_measures.peak(), 0);
    EXPECT_EQ(m_measures.refusedShare(), 0);
    EXPECT_EQ(m_measures.wastedPerMessage(), 0);
}

TEST_F(MeasuresTest, TheLongestWaitIsThatForTheFirstDelivery)
{
    whenAllIsDelivered();
    EXPECT_EQ(m_measures.longestWait(), 8s);
}

TEST_F(MeasuresTest, IsEmptyWithTheLastDelivery)
{
    whenAllIsDelivered();
    EXPECT_EQ(m_measures.messages(), 4);
    EXPECT_EQ(m_measures.delivered(), 4);
    EXPECT_EQ(m_measures.emptyAfter(), 8s);
}

TEST_F(MeasuresTest, ComparesTheLastTillWithTheMedianOne)
{
    whenAllIsDelivered();
    EXPECT_EQ(m_measures.unfairness(), 2);
}

TEST_F(MeasuresTest, WhatIsNotOverHasNoEnd)
{
    m_measures.noteDelivery(1, 11s, true);
    EXPECT_FALSE(m_measures.isEmpty());
    EXPECT_EQ(m_measures.emptyAfter(), std::nullopt);
    EXPECT_EQ(m_measures.longestWait(), std::nullopt);
    EXPECT_EQ(m_measures.unfairness(), std::nullopt);
}

TEST_F(MeasuresTest, WithoutMessagesAllIsEmptyAtOnce)
{
    const Measures measures = measuresOf({0, 0});
    EXPECT_EQ(measures.emptyAfter(), 0ms);
    EXPECT_EQ(measures.longestWait(), 0ms);
    EXPECT_EQ(measures.unfairness(), std::nullopt);
}

} // namespace

// A till's passes over its backlog.

#include "simulation/deliverer.h"

#include <gtest/gtest.h>

using namespace simulation;
using namespace std::chrono_literals;

namespace {

/// Ten messages, all enqueued at 0; the wait is a second for each attempt, whatever the chance.
class DelivererTest : public testing::Test
{
protected:
    DelivererTest()
    {
        m_policy.wait = [](int attempts, double) { return Moment(attempts * 1s); };
        m_policy.failuresToStop = 3;
        for (int i = 0; i < 10; ++i)
            m_backlog.append(0ms);
    }

    void whenFailing(int times, Moment now = 0ms)
    {
        for (int i = 0; i < times; ++i) {
            ASSERT_TRUE(m_deliverer.take(now));
            m_deliverer.fail(now, 0, 0);
        }
    }
    void whenSucceeding(Moment now = 0ms)
    {
        ASSERT_TRUE(m_deliverer.take(now));
        m_deliverer.succeed();
    }
    /// A pass that ends early at that moment; when the next one begins.
    std::optional<Moment> afterStopAt(Moment now)
    {
        while (!m_deliverer.isStopped())
            whenFailing(1, now);
        return m_deliverer.endPass();
    }

    Policy m_policy;
    Backlog m_backlog;
    Deliverer m_deliverer{m_backlog, m_policy};
};

TEST_F(DelivererTest, ThreeFailuresInARowEndAPass)
{
    whenFailing(2);
    EXPECT_FALSE(m_deliverer.isStopped());
    whenFailing(1);
    EXPECT_TRUE(m_deliverer.isStopped());
}

TEST_F(DelivererTest, ASuccessStartsTheCountAgain)
{
    whenFailing(2);
    whenSucceeding();
    whenFailing(2);
    EXPECT_FALSE(m_deliverer.isStopped());
    EXPECT_EQ(m_backlog.undelivered(), 9U);
}

TEST_F(DelivererTest, APassTriesEachMessageOnce)
{
    m_policy.failuresToStop = 0;
    m_policy.wait = [](int, double) { return 0ms; };
    whenFailing(10);

    EXPECT_FALSE(m_deliverer.take(0ms));
    EXPECT_FALSE(m_deliverer.isStopped());
    EXPECT_EQ(m_deliverer.endPass(), 0ms);
    EXPECT_TRUE(m_deliverer.take(0ms));
}

TEST_F(DelivererTest, TheNextPassBeginsWhenTheFirstMessageIsDue)
{
    m_policy.failuresToStop = 0;
    whenFailing(10, 500ms);

    EXPECT_FALSE(m_deliverer.take(500ms));
    EXPECT_EQ(m_deliverer.endPass(), 1500ms);
}

TEST_F(DelivererTest, AfterAnEarlyEndTheTillWaitsLongerEachTime)
{
    EXPECT_EQ(afterStopAt(10s), 11s);
    EXPECT_EQ(afterStopAt(20s), 22s);
    EXPECT_EQ(afterStopAt(30s), 33s);
}

TEST_F(DelivererTest, ASuccessClearsTheTillsWait)
{
    afterStopAt(10s);
    afterStopAt(20s);
    whenSucceeding(30s);
    EXPECT_EQ(afterStopAt(30s), 31s);
}

TEST_F(DelivererTest, EveryPassCountsItsFailuresAnew)
{
    whenFailing(2);
    m_deliverer.endPass();
    whenFailing(2);
    EXPECT_FALSE(m_deliverer.isStopped());
}

TEST_F(DelivererTest, WhereOnlyMessagesWaitItGoesOnWithTheFirstThatFailed)
{
    m_policy.tillWaits = false;
    EXPECT_EQ(afterStopAt(10s), 11s);
    EXPECT_EQ(afterStopAt(11s), 13s);
}

TEST_F(DelivererTest, TheChancesAreOfTheMessageAndOfTheTill)
{
    m_policy.wait = [](int, double chance) { return chance > 0.5 ? Moment(9s) : Moment(1s); };
    for (int i = 0; i < 3; ++i) {
        ASSERT_TRUE(m_deliverer.take(0ms));
        m_deliverer.fail(0ms, 0.1, 0.9);
    }
    EXPECT_EQ(m_deliverer.endPass(), 9s);
    ASSERT_TRUE(m_deliverer.take(1s));
    EXPECT_EQ(m_backlog.attempts(0), 1);
}

class SlowTrustTest : public DelivererTest
{
protected:
    SlowTrustTest() { m_policy.trustsSlowly = true; }
};

TEST_F(SlowTrustTest, OneFailureEndsThePassAfterAnEarlyEnd)
{
    afterStopAt(10s);
    whenFailing(1, 20s);
    EXPECT_TRUE(m_deliverer.isStopped());
}

TEST_F(SlowTrustTest, ASuccessTakesOneOffTheCount)
{
    afterStopAt(10s);
    afterStopAt(20s);
    afterStopAt(30s);
    whenSucceeding(40s);
    EXPECT_EQ(afterStopAt(40s), 43s);
}

TEST_F(SlowTrustTest, SuccessesBeyondTheCountEarnNothing)
{
    whenSucceeding();
    whenSucceeding();
    EXPECT_EQ(afterStopAt(10s), 11s);
}

} // namespace

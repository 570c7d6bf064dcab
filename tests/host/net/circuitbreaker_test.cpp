#include "host/net/circuitbreaker.h"

#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace {

class CircuitBreakerTest : public testing::Test
{
protected:
    bool failed(int times)
    {
        bool opened = false;
        for (int i = 0; i < times; ++i)
            opened = m_breaker.noteFailure(m_now, m_rule);
        return opened;
    }
    bool admits() { return m_breaker.admits(m_now); }

    CircuitBreaker m_breaker;
    CircuitBreaker::TimePoint m_now{1000s};
    BreakerRule m_rule{3, 30s};
};

TEST_F(CircuitBreakerTest, OpensAfterThatManyFailuresInARow)
{
    EXPECT_TRUE(admits());
    EXPECT_FALSE(failed(2));
    EXPECT_TRUE(admits());
    EXPECT_TRUE(failed(1));
    EXPECT_FALSE(admits());
}

TEST_F(CircuitBreakerTest, ASuccessInBetweenStartsTheCountAgain)
{
    failed(2);
    m_breaker.noteSuccess();

    EXPECT_FALSE(failed(2));
    EXPECT_TRUE(admits());
}

TEST_F(CircuitBreakerTest, AdmitsAgainWhenThePeriodHasPassed)
{
    failed(3);

    m_now += 30s - 1ns;
    EXPECT_FALSE(admits());
    m_now += 1ns;
    EXPECT_TRUE(admits());
}

TEST_F(CircuitBreakerTest, OpensAtOnceWhenTheFirstExchangeAfterThePeriodFails)
{
    failed(3);
    m_now += 30s;

    EXPECT_TRUE(failed(1));
    EXPECT_FALSE(admits());
}

TEST_F(CircuitBreakerTest, AdmitsAtOnceWhenTheServerIsBack)
{
    failed(3);
    m_breaker.noteBack();

    EXPECT_TRUE(admits());
    EXPECT_TRUE(failed(1));
}

TEST_F(CircuitBreakerTest, ASuccessClosesItForGood)
{
    failed(3);
    m_breaker.noteSuccess();

    EXPECT_TRUE(admits());
    EXPECT_FALSE(failed(2));
}

TEST_F(CircuitBreakerTest, StaysClosedWithoutARule)
{
    for (const BreakerRule &rule : {BreakerRule{0, 30s}, {3, 0s}, {-1, 30s}, {3, -1s}}) {
        m_rule = rule;
        EXPECT_FALSE(failed(10));
        EXPECT_TRUE(admits());
    }
}

} // namespace

// Whole outages.

#include "simulation/backlogs.h"
#include "simulation/outage.h"

#include <gmock/gmock.h>

#include <map>
#include <ostream>

using namespace simulation;
using namespace std::chrono_literals;

namespace {

Scenario smallScenario()
{
    Scenario scenario;
    scenario.tills = 20;
    scenario.outage = 20min;
    scenario.chequesPerHour = 60;
    scenario.service = {2, 200ms, 4};
    scenario.overhead = 300ms;
    scenario.limit = 15s;
    scenario.giveUp = 24h;
    scenario.mostRequests = 1'000'000;
    scenario.seed = 1;
    return scenario;
}

// Two tills with one message each, both enqueued when the service returns at 0; a service that
// takes a second and lets nobody wait; failed attempts are repeated after 1700 ms. An exchange
// takes 2 ms at most before its request arrives.
class TwoTillsTest : public testing::Test
{
protected:
    TwoTillsTest()
    {
        m_scenario = smallScenario();
        m_scenario.tills = 2;
        m_scenario.outage = 0ms;
        m_scenario.service = {1, 1s, 0};
        m_scenario.overhead = 1ms;
        m_policy.wait = [](int, double) { return 1700ms; };
        m_backlogs.resize(2);
        for (Backlog &backlog : m_backlogs)
            backlog.append(0ms);
    }

    const Measures &whenOver()
    {
        m_outage.emplace(m_scenario, m_policy, m_backlogs);
        m_outage->run();
        return m_outage->measures();
    }

    Scenario m_scenario;
    Policy m_policy;
    std::vector<Backlog> m_backlogs;
    std::optional<Outage> m_outage;
};

// One is served until 1 s, the other is refused, asks again at 1.7 s and is served until 2.7 s.
TEST_F(TwoTillsTest, TheOneThatIsRefusedIsServedAfterItsWait)
{
    const Measures &measures = whenOver();

    EXPECT_EQ(measures.requests(), 3);
    EXPECT_DOUBLE_EQ(measures.refusedShare(), 1.0 / 3);
    EXPECT_DOUBLE_EQ(measures.wastedPerMessage(), 0.5);
    EXPECT_THAT(measures.requestsBySecond(), testing::ElementsAre(2, 1));
    EXPECT_THAT(measures.deliveredBySecond(), testing::ElementsAre(0, 1, 1));
    EXPECT_NEAR(static_cast<double>(measures.emptyAfter()->count()), 2700, 5);
}

// Both are served one after the other until 2 s, nobody is refused.
TEST_F(TwoTillsTest, WithAQueueNobodyIsRefused)
{
    m_scenario.service.queueLimit = 1;
    const Measures &measures = whenOver();

    EXPECT_EQ(measures.requests(), 2);
    EXPECT_EQ(measures.refusedShare(), 0);
    EXPECT_NEAR(static_cast<double>(measures.emptyAfter()->count()), 2000, 5);
}

// The second till's answer would come after 2 s, it gives up at 1.5 s and asks again at 3.2 s.
TEST_F(TwoTillsTest, AnAnswerThatComesTooLateIsWasted)
{
    m_scenario.service.queueLimit = 1;
    m_scenario.limit = 1500ms;
    const Measures &measures = whenOver();

    EXPECT_EQ(measures.requests(), 3);
    EXPECT_EQ(measures.refusedShare(), 0);
    EXPECT_DOUBLE_EQ(measures.wastedPerMessage(), 0.5);
    EXPECT_NEAR(static_cast<double>(measures.emptyAfter()->count()), 4200, 8);
}

TEST_F(TwoTillsTest, EndsWhenItIsTimeToGiveUp)
{
    m_scenario.giveUp = 1500ms;
    EXPECT_EQ(whenOver().delivered(), 1);
    EXPECT_FALSE(whenOver().isEmpty());
}

TEST_F(TwoTillsTest, EndsAfterTheMostRequests)
{
    m_scenario.mostRequests = 2;
    EXPECT_EQ(whenOver().requests(), 2);
}

// What is sent during the outage reaches nobody and is counted nowhere; its wait holds.
TEST_F(TwoTillsTest, AttemptsDuringTheOutageFailAndWait)
{
    m_scenario.outage = 1s;
    m_scenario.service.queueLimit = 1;
    const Measures &measures = whenOver();

    EXPECT_EQ(measures.requests(), 2);
    EXPECT_THAT(measures.requestsBySecond(), testing::ElementsAre(2));
    EXPECT_NEAR(static_cast<double>(measures.longestWait()->count()), 2700, 8);
}

TEST_F(TwoTillsTest, TillsThatBeginTogetherDoNotSendBefore)
{
    m_scenario.outage = 10s;
    m_scenario.together = 1s;
    m_scenario.service.queueLimit = 1;

    EXPECT_NEAR(static_cast<double>(whenOver().longestWait()->count()), 2700, 8);
}

class EveryPolicyTest : public testing::TestWithParam<Policy>
{
protected:
    Outage outageOf(std::uint64_t seed, Outage::Watcher watcher = {})
    {
        m_scenario.seed = seed;
        return {m_scenario, GetParam(), backlogsOf(m_scenario), std::move(watcher)};
    }
    std::vector<int> requests(std::uint64_t seed)
    {
        Outage outage = outageOf(seed);
        outage.run();
        return outage.measures().requestsBySecond();
    }

    Scenario m_scenario = smallScenario();
};

TEST_P(EveryPolicyTest, DeliversEveryMessage)
{
    Outage outage = outageOf(1);
    outage.run();
    EXPECT_GT(outage.measures().messages(), 0);
    EXPECT_TRUE(outage.measures().isEmpty());
}

TEST_P(EveryPolicyTest, TheSameSeedGivesTheSameNumbers)
{
    EXPECT_EQ(requests(1), requests(1));
    EXPECT_NE(requests(1), requests(2));
}

TEST_P(EveryPolicyTest, NoTillHasMoreRequestsAtOnceThanItMay)
{
    m_scenario.service = {2, 2s, 1000}; // slow enough for all that a till may send
    std::map<int, int> onTheirWay;
    int most = 0;
    Outage outage = outageOf(1, [&](int till, Moment, bool sends) {
        onTheirWay[till] += sends ? 1 : -1;
        most = std::max(most, onTheirWay[till]);
        EXPECT_GE(onTheirWay[till], 0);
    });
    outage.run();
    EXPECT_EQ(most, GetParam().requestsAtOnce);
}

TEST_P(EveryPolicyTest, TheServiceIsAskedFromItsReturnOnOnly)
{
    Moment first = Moment::max();
    Outage outage = outageOf(1, [&](int, Moment at, bool) { first = std::min(first, at); });
    outage.run();
    EXPECT_GE(first, m_scenario.outage);
}

std::string nameOf(const testing::TestParamInfo<Policy> &info)
{
    std::string name = info.param.name;
    std::erase_if(name, [](char c) { return std::isalnum(static_cast<unsigned char>(c)) == 0; });
    return name;
}

INSTANTIATE_TEST_SUITE_P(Policies, EveryPolicyTest, testing::ValuesIn(policies({})), nameOf);

} // namespace

namespace simulation {

static void PrintTo(const Policy &policy, std::ostream *out)
{
    *out << policy.name;
}

} // namespace simulation

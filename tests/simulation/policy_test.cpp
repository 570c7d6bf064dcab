// The ways of waiting.

#include "simulation/policy.h"

#include "host/queue/backoff.h"

#include <gtest/gtest.h>

using namespace simulation;
using namespace std::chrono_literals;

namespace {

Policy policyNamed(const std::string &name, const PolicyNumbers &numbers = {})
{
    for (const Policy &policy : policies(numbers))
        if (policy.name == name)
            return policy;
    ADD_FAILURE() << "no policy " << name;
    return {};
}

TEST(PolicyTest, TheChosenOneWaitsAsTheProductDoes)
{
    const Policy chosen = policies({}).front();
    EXPECT_EQ(chosen.name, "chosen");
    EXPECT_EQ(chosen.failuresToStop, 3);
    EXPECT_EQ(chosen.requestsAtOnce, 1);
    EXPECT_TRUE(chosen.tillWaits);
    EXPECT_FALSE(chosen.trustsSlowly);
    for (const int attempts : {1, 2, 9, 100})
        EXPECT_EQ(chosen.wait(attempts, 0.25), backoff::waitAfter(attempts, 0.25));
}

TEST(PolicyTest, NoWaitIsNone)
{
    const Policy policy = policyNamed("no wait");
    EXPECT_EQ(policy.wait(9, 0.9), 0ms);
    EXPECT_EQ(policy.failuresToStop, 0);
    EXPECT_TRUE(policy.forgets);
}

TEST(PolicyTest, AFixedWaitIsAlwaysTheSame)
{
    PolicyNumbers numbers;
    numbers.fixedWait = 7s;
    const Policy policy = policyNamed("fixed wait", numbers);
    EXPECT_EQ(policy.wait(1, 0), 7s);
    EXPECT_EQ(policy.wait(9, 0.9), 7s);
    EXPECT_FALSE(policy.forgets);
}

TEST(PolicyTest, WithoutJitterTheWaitIsTheLongest)
{
    const Policy policy = policyNamed("without jitter");
    EXPECT_EQ(policy.wait(2, 0), 10s);
    EXPECT_EQ(policy.wait(2, 0.9), 10s);
}

TEST(PolicyTest, EqualJitterWaitsAtLeastHalf)
{
    EXPECT_EQ(equalJitter(2, 0), 5s);
    EXPECT_EQ(equalJitter(2, 0.5), 7500ms);
    EXPECT_EQ(equalJitter(9, 0), 450s);
    EXPECT_EQ(policyNamed("equal jitter").wait(2, 0.5), 7500ms);
}

TEST(PolicyTest, TheOthersChangeOnePartOfTheChosenOne)
{
    EXPECT_FALSE(policyNamed("only messages wait").tillWaits);
    EXPECT_EQ(policyNamed("passes to the end").failuresToStop, 0);
    EXPECT_EQ(policyNamed("4 at a time").requestsAtOnce, 4);
    EXPECT_TRUE(policyNamed("trusts slowly").trustsSlowly);
}

// The rule that other numbers are tried with is the product's rule.
TEST(PolicyTest, FullJitterWithTheProductsNumbersIsTheProductsRule)
{
    const WaitRule rule = fullJitter({backoff::firstWait, backoff::longestWait});
    for (int attempts = 1; attempts < 100; ++attempts)
        for (const double chance : {0.0, 0.3, 0.999999})
            EXPECT_EQ(rule(attempts, chance), backoff::waitAfter(attempts, chance)) << attempts;
}

TEST(PolicyTest, OtherWaitsAreFurtherPolicies)
{
    PolicyNumbers numbers;
    numbers.otherWaits = {{2s, 60s}};
    const Policy policy = policyNamed("full jitter, 2 to 60 s", numbers);
    EXPECT_EQ(policy.wait(1, 0.5), 1s);
    EXPECT_EQ(policy.wait(2, 0.5), 2s);
    EXPECT_EQ(policy.wait(50, 0.5), 30s);
}

} // namespace

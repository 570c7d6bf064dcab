// The command line of simulate-outage.

#include "simulation/options.h"

#include <gmock/gmock.h>

using namespace simulation;
using namespace std::chrono_literals;
using testing::HasSubstr;

namespace {

class OptionsTest : public testing::Test
{
protected:
    static Options whenRead(std::vector<const char *> words)
    {
        words.insert(words.begin(), "simulate-outage");
        const auto options = readOptions(static_cast<int>(words.size()), words.data());
        EXPECT_TRUE(options);
        return options.value_or(Options{});
    }
    static std::string whenRefused(const std::vector<const char *> &words)
    {
        try {
            whenRead(words);
        } catch (const OptionsError &error) {
            return error.what();
        }
        return "accepted";
    }
};

TEST_F(OptionsTest, WithoutWordsEverythingHasItsDefault)
{
    const Options options = whenRead({});
    ASSERT_EQ(options.scenarios.size(), 4U);
    const Scenario &first = options.scenarios.front();
    EXPECT_EQ(first.tills, 100);
    EXPECT_EQ(options.scenarios.back().tills, 100000);
    EXPECT_EQ(first.outage, 1h);
    EXPECT_EQ(first.together, std::nullopt);
    EXPECT_DOUBLE_EQ(first.chequesPerHour, 30);
    EXPECT_DOUBLE_EQ(first.service.capacity, 2.5);
    EXPECT_EQ(first.service.serviceTime, 100ms);
    EXPECT_EQ(options.scenarios.back().service.queueLimit, 2500);
    EXPECT_EQ(first.overhead, 500ms);
    EXPECT_EQ(first.limit, 15s);
    EXPECT_EQ(first.giveUp, 24h);
    EXPECT_EQ(first.mostRequests, 50'000'000);
    EXPECT_EQ(first.seed, 1U);
    EXPECT_EQ(options.policies.size(), policies({}).size());
    EXPECT_TRUE(options.plotFile.empty());
    EXPECT_EQ(options.plotEnd, std::nullopt);
}

TEST_F(OptionsTest, EveryNumberOfTheScenarioCanBeSet)
{
    const Options options = whenRead(
        {"--tills", "7", "9", "--outage", "90", "--together", "30", "--cheques-per-hour", "12",
            "--capacity", "40", "--service-time", "250", "--queue-seconds", "2.5", "--overhead",
            "800", "--limit", "20", "--give-up", "3", "--most-requests", "2", "--seed", "11"});
    ASSERT_EQ(options.scenarios.size(), 2U);
    const Scenario &last = options.scenarios.back();
    EXPECT_EQ(last.tills, 9);
    EXPECT_EQ(last.outage, 90min);
    EXPECT_EQ(last.together, 30min);
    EXPECT_DOUBLE_EQ(last.chequesPerHour, 12);
    EXPECT_DOUBLE_EQ(last.service.capacity, 40);
    EXPECT_EQ(last.service.serviceTime, 250ms);
    EXPECT_EQ(last.service.queueLimit, 100);
    EXPECT_EQ(last.overhead, 800ms);
    EXPECT_EQ(last.limit, 20s);
    EXPECT_EQ(last.giveUp, 3h);
    EXPECT_EQ(last.mostRequests, 2'000'000);
    EXPECT_EQ(last.seed, 11U);
}

TEST_F(OptionsTest, TheCapacityFollowsTheTills)
{
    const Options options = whenRead({"--tills", "10", "1000", "--capacity-per-till", "0.5"});
    EXPECT_DOUBLE_EQ(options.scenarios.front().service.capacity, 5);
    EXPECT_DOUBLE_EQ(options.scenarios.back().service.capacity, 500);
}

TEST_F(OptionsTest, EveryNumberOfThePoliciesCanBeSet)
{
    const Options options = whenRead({"--failures-to-stop", "5", "--at-once", "6", "--fixed-wait",
        "8", "--waits", "1", "60", "--waits", "2", "70", "--policy", "chosen", "--policy",
        "6 at a time", "--policy", "fixed wait", "--policy", "full jitter, 2 to 70 s"});
    ASSERT_EQ(options.policies.size(), 4U);
    EXPECT_EQ(options.policies[0].failuresToStop, 5);
    EXPECT_EQ(options.policies[1].requestsAtOnce, 6);
    EXPECT_EQ(options.policies[2].wait(1, 0.5), 8s);
    EXPECT_EQ(options.policies[3].wait(20, 0.5), 35s);
}

TEST_F(OptionsTest, ThePlotCanBeCut)
{
    const Options options = whenRead({"--plot", "x.svg", "--plot-minutes", "40"});
    EXPECT_EQ(options.plotFile, "x.svg");
    EXPECT_EQ(options.plotEnd, 40min);
}

TEST_F(OptionsTest, WhatCannotBeIsRefusedByItsName)
{
    EXPECT_THAT(whenRefused({"--tills", "0"}), HasSubstr("--tills"));
    EXPECT_THAT(whenRefused({"--outage", "soon"}), HasSubstr("--outage"));
    EXPECT_THAT(whenRefused({"--capacity", "0"}), HasSubstr("--capacity"));
    EXPECT_THAT(whenRefused({"--at-once", "1"}), HasSubstr("--at-once"));
    EXPECT_THAT(whenRefused({"--overhead", "0"}), HasSubstr("--overhead"));
    EXPECT_THAT(whenRefused({"--bogus"}), HasSubstr("--bogus"));
    EXPECT_THAT(
        whenRefused({"--capacity", "1", "--capacity-per-till", "1"}), HasSubstr("excludes"));
    EXPECT_THAT(whenRefused({"--together", "61"}), HasSubstr("--together"));
    EXPECT_THAT(whenRefused({"--waits", "60", "5"}), HasSubstr("--waits"));
    EXPECT_THAT(whenRefused({"--waits", "0", "5"}), HasSubstr("--waits"));
    EXPECT_THAT(whenRefused({"--waits", "5"}), HasSubstr("--waits"));
    EXPECT_THAT(
        whenRefused({"--capacity", "1e7", "--service-time", "60000"}), HasSubstr("--service-time"));
}

TEST_F(OptionsTest, AnUnknownPolicyIsRefusedWithTheKnownOnes)
{
    const std::string reason = whenRefused({"--policy", "hope"});
    EXPECT_THAT(reason, HasSubstr("\"hope\""));
    EXPECT_THAT(reason, HasSubstr("chosen, no wait"));
}

TEST_F(OptionsTest, HelpAsksForNothing)
{
    const char *words[] = {"simulate-outage", "--help"};
    testing::internal::CaptureStdout();
    EXPECT_FALSE(readOptions(2, words));
    EXPECT_THAT(testing::internal::GetCapturedStdout(), HasSubstr("--capacity-per-till"));
}

} // namespace

#include "host/net/serverprobe.h"

#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <memory>
#include <utility>
#include <vector>

using namespace std::chrono_literals;

namespace {

constexpr auto longEnough = 20s;

ProbeSchedule withoutPauses()
{
    return {0ms, std::chrono::steady_clock::now() + longEnough};
}

/// Tells of the end of a probe's thread: what an attempt holds is released then.
class Ending
{
public:
    std::shared_ptr<void> held() { return std::exchange(m_held, nullptr); }
    void wait() { m_ended.get_future().wait(); }

private:
    std::promise<void> m_ended;
    std::shared_ptr<void> m_held{nullptr, [this](void *) { m_ended.set_value(); }};
};

TEST(ServerProbe, TriesUntilTheServerIsBack)
{
    std::atomic<int> attempts = 0;
    std::vector<int> told;
    Ending ending;
    const ServerProbe probe(
        withoutPauses(),
        [&attempts, held = ending.held()](const std::stop_token &) { return ++attempts == 3; },
        [&] { told.push_back(attempts); });

    ending.wait();
    EXPECT_EQ(attempts, 3);
    EXPECT_EQ(told, std::vector<int>{3});
}

TEST(ServerProbe, LeavesAServerAloneThatCanBeReachedAllTheTime)
{
    std::atomic<int> attempts = 0;
    Ending ending;
    const ServerProbe probe(
        withoutPauses(),
        [&attempts, held = ending.held()](const std::stop_token &) { return ++attempts > 0; },
        [] { FAIL(); });

    ending.wait();
    EXPECT_EQ(attempts, 1);
}

TEST(ServerProbe, EndsWithItsSchedule)
{
    std::atomic<int> attempts = 0;
    Ending ending;
    const ServerProbe probe(
        {0ms, std::chrono::steady_clock::now()},
        [&attempts, held = ending.held()](const std::stop_token &) { return ++attempts > 1; },
        [] { FAIL(); });

    ending.wait();
    EXPECT_EQ(attempts, 1);
}

TEST(ServerProbe, StopsAnAttemptThatIsOnItsWay)
{
    std::promise<void> begun;
    std::promise<void> stopped;
    auto probe = std::make_unique<ServerProbe>(
        withoutPauses(),
        [&](const std::stop_token &stop) {
            const std::stop_callback onStop(stop, [&] { stopped.set_value(); });
            begun.set_value();
            stopped.get_future().wait();
            return false;
        },
        [] { FAIL(); });
    begun.get_future().wait();

    probe.reset();
    SUCCEED();
}

TEST(ServerProbe, StopsDuringAPause)
{
    const auto begun = std::chrono::steady_clock::now();
    {
        const ServerProbe probe(
            {longEnough, begun + 2 * longEnough}, [](const std::stop_token &) { return false; },
            [] { FAIL(); });
    }

    EXPECT_LT(std::chrono::steady_clock::now() - begun, longEnough);
}

} // namespace

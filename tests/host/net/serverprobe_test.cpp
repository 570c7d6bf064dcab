#include "host/net/serverprobe.h"

#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <memory>

using namespace std::chrono_literals;

namespace {

constexpr auto longEnough = 20s;

ProbeSchedule withoutPauses()
{
    return {0ms, std::chrono::steady_clock::now() + longEnough};
}

TEST(ServerProbe, TriesUntilTheServerIsReached)
{
    std::atomic<int> attempts = 0;
    std::promise<int> reached;
    const ServerProbe probe(
        withoutPauses(), [&](const std::stop_token &) { return ++attempts == 3; },
        [&] { reached.set_value(attempts); });

    EXPECT_EQ(reached.get_future().get(), 3);
}

TEST(ServerProbe, EndsWithItsSchedule)
{
    std::atomic<int> attempts = 0;
    std::promise<void> ended;
    // What an attempt holds is released when the thread that would make it has ended.
    std::shared_ptr<void> held(nullptr, [&ended](void *) { ended.set_value(); });
    const ServerProbe probe(
        {0ms, std::chrono::steady_clock::now()},
        [&attempts, held = std::move(held)](const std::stop_token &) { return ++attempts > 0; },
        [] {});

    ended.get_future().wait();
    EXPECT_EQ(attempts, 0);
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

// The service: what it answers when, and what it refuses.

#include "simulation/service.h"

#include <gtest/gtest.h>

using namespace simulation;
using namespace std::chrono_literals;

namespace {

TEST(ServiceTest, WorksOnAsManyRequestsAtOnceAsItsCapacityNeeds)
{
    EXPECT_EQ(Service({100, 50ms, 0}).workers(), 5);
    EXPECT_EQ(Service({10, 50ms, 0}).workers(), 1);
}

TEST(ServiceTest, AnswersAfterItsServiceTime)
{
    Service service({20, 50ms, 0});
    EXPECT_EQ(service.accept(10ms), 60ms);
}

// One worker cannot do ten requests a second in half a second each, so it is faster.
TEST(ServiceTest, ReachesItsCapacityWhateverTheServiceTime)
{
    Service service({10, 10ms, 100});
    EXPECT_EQ(service.accept(0ms), 100ms);
    EXPECT_EQ(service.accept(0ms), 200ms);
}

TEST(ServiceTest, LetsRequestsWaitForTheFirstFreeWorker)
{
    Service service({20, 100ms, 2});
    EXPECT_EQ(service.accept(0ms), 100ms);
    EXPECT_EQ(service.accept(30ms), 130ms);
    EXPECT_EQ(service.accept(40ms), 200ms);
    EXPECT_EQ(service.accept(50ms), 230ms);
}

TEST(ServiceTest, RefusesWhatWouldWaitBeyondTheLimit)
{
    Service service({10, 100ms, 1});
    EXPECT_TRUE(service.accept(0ms));
    EXPECT_TRUE(service.accept(0ms));
    EXPECT_FALSE(service.accept(99ms));
    EXPECT_EQ(service.accept(100ms), 300ms);
}

TEST(ServiceTest, WithoutAQueueItRefusesWhatItCannotBeginAtOnce)
{
    Service service({10, 100ms, 0});
    EXPECT_TRUE(service.accept(0ms));
    EXPECT_FALSE(service.accept(99ms));
    EXPECT_TRUE(service.accept(100ms));
}

TEST(ServiceTest, ACapacityAboveARequestAMillisecondComesOutExact)
{
    Service service({8000, 1ms, 10000});
    std::optional<Moment> last;
    for (int i = 0; i < 8000; ++i)
        last = service.accept(0ms);
    EXPECT_EQ(last, 1000ms);
}

} // namespace

// The slope of a line through points that scatter, and what a report makes of it.

#include "tests/soak/soak.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>
#include <ctime>
#include <random>

namespace soak {

namespace {

TEST(SlopeTest, IsTheLeastSquaresLineWithItsInterval)
{
    // By hand: slope 0.5, residuals -0.1 0.2 -0.1 around it; t(1, 0.975) = 12.706.
    const Slope slope = slopeOf({0.9, 1.7, 1.9});
    EXPECT_NEAR(slope.value, 0.5, 1e-9);
    EXPECT_NEAR(slope.halfWidth, 12.7062 * 0.173205, 1e-4);
    EXPECT_TRUE(slope.maybeNone());
}

std::vector<double> scattered(double slope)
{
    std::mt19937 random(1);
    std::vector<double> values;
    for (int x = 0; x < 190; ++x)
        values.push_back(10'000.0 + slope * x + static_cast<double>(random() % 1000));
    return values;
}

TEST(SlopeTest, IsSeenThroughScatterAndOnlyWhereItIs)
{
    EXPECT_TRUE(slopeOf(scattered(0.0)).maybeNone());
    EXPECT_FALSE(slopeOf(scattered(5.0)).maybeNone());
    EXPECT_FALSE(slopeOf(scattered(-5.0)).maybeNone());
}

/// Both tills on a machine that becomes slower.
std::vector<ChequeTimes> timesOf(const std::vector<double> &old)
{
    std::vector<ChequeTimes> times;
    for (std::size_t block = 0; block < old.size(); ++block) {
        const double slowness = 1.0 + static_cast<double>(block) / 100.0;
        times.push_back({old[block] * slowness, 10'000.0 * slowness});
    }
    return times;
}

Report soundReport()
{
    Report report;
    report.settled = {30'000'000, 20, {}};
    report.ended = {30'000'000 + allowedGrowth - 1, 20, {}};
    report.times = timesOf(scattered(0.0));
    return report;
}

TEST(SoakReportTest, SoundOneHasNothingWrong)
{
    EXPECT_EQ(violations(soundReport(), true), QStringList());
}

TEST(SoakReportTest, GrowthDescriptorsAndTimeAreTold)
{
    Report report = soundReport();
    ++report.ended.memory;
    EXPECT_EQ(violations(report, true).size(), 1);
    ++report.ended.descriptors;
    EXPECT_EQ(violations(report, true).size(), 2);
    report.times = timesOf(scattered(5.0));
    EXPECT_EQ(violations(report, true).size(), 3);
    EXPECT_EQ(violations(report, false).size(), 2);
    report.times = timesOf(scattered(-5.0));
    EXPECT_EQ(violations(report, true).size(), 2);
}

/** Computes until this process has used \a time more of the processor. */
void compute(std::chrono::nanoseconds time)
{
    const auto used = [] {
        timespec now{};
        ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
        return std::chrono::seconds(now.tv_sec) + std::chrono::nanoseconds(now.tv_nsec);
    };
    const auto end = used() + time;
    while (used() < end) { }
}

TEST(ProcessStateTest, SeesMemoryDescriptorsAndProcessor)
{
    const ProcessState before = stateOf(::getpid());
    constexpr std::size_t size = 8 * 1024 * 1024;
    const std::vector<char> held(size, 'x');
    const int descriptor = ::dup(STDERR_FILENO);
    // The system writes the used time down at its own ticks, of some milliseconds each.
    constexpr auto computed = std::chrono::milliseconds(60);
    compute(computed);
    const ProcessState after = stateOf(::getpid());
    ::close(descriptor);
    EXPECT_GE(after.memory - before.memory, static_cast<qint64>(size * 9 / 10));
    EXPECT_EQ(after.descriptors, before.descriptors + 1);
    EXPECT_GE(after.processor - before.processor, computed / 2);
    EXPECT_EQ(held.back(), 'x');
}

} // namespace

} // namespace soak

// The long run is tools/soak; a short one says nothing about time.

#include "tests/faults/machine/control.h"
#include "tests/soak/soak.h"

#include <gtest/gtest.h>

#include <iostream>

namespace soak {

namespace {

// What is built for debugging sells several hundred cheques in ten seconds.
constexpr int cheques = 2000;
constexpr int settling = 500;

Report runOf(int count, const char *leak)
{
    return run({count, settling, 1, leak}, [](int) {});
}

TEST(SoakTest, ATillDoesNotGrow)
{
    const auto report = runOf(cheques, nullptr);
    std::cout << markdown(report).toStdString();
    EXPECT_EQ(violations(report, false), QStringList());
    EXPECT_GT(report.faults, 0);
}

TEST(SoakControlTest, ATillThatKeepsMemoryIsFound)
{
    const auto report = runOf(cheques, faults::spoilMemory);
    EXPECT_EQ(violations(report, false).size(), 1);
}

TEST(SoakControlTest, ATillThatKeepsFilesOpenIsFound)
{
    const auto report = runOf(settling + chequesOfBlock, faults::spoilDescriptors);
    EXPECT_EQ(violations(report, false).size(), 1);
}

} // namespace

} // namespace soak

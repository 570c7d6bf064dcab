// Where values stand in a plot.

#include "simulation/axis.h"

#include <gmock/gmock.h>

#include <cmath>

using namespace simulation;
using testing::ElementsAre;

namespace {

TEST(AxisTest, ValuesStandInProportion)
{
    const Axis axis(0, 50, 100, 600);
    EXPECT_DOUBLE_EQ(axis.at(0), 100);
    EXPECT_DOUBLE_EQ(axis.at(10), 200);
    EXPECT_DOUBLE_EQ(axis.at(50), 600);
}

TEST(AxisTest, UpwardsTheyFall)
{
    EXPECT_DOUBLE_EQ(Axis(0, 100, 370, 70).at(25), 295);
}

TEST(AxisTest, WhatIsOutsideStandsAtTheEdge)
{
    const Axis axis(1, 50, 100, 600);
    EXPECT_DOUBLE_EQ(axis.at(0), 100);
    EXPECT_DOUBLE_EQ(axis.at(51), 600);
    EXPECT_FALSE(axis.holds(0.9));
    EXPECT_TRUE(axis.holds(1));
    EXPECT_TRUE(axis.holds(50));
    EXPECT_FALSE(axis.holds(50.1));
}

TEST(AxisTest, LogarithmicDecadesAreEquallyLong)
{
    const Axis axis(1, 10000, 0, 400, true);
    EXPECT_DOUBLE_EQ(axis.at(1), 0);
    EXPECT_DOUBLE_EQ(axis.at(10), 100);
    EXPECT_DOUBLE_EQ(axis.at(10000), 400);
    EXPECT_THAT(axis.marks(), ElementsAre(1, 10, 100, 1000, 10000));
}

TEST(AxisTest, MarksAreRound)
{
    EXPECT_THAT(
        Axis(0, 100, 0, 1).marks(), ElementsAre(0, 10, 20, 30, 40, 50, 60, 70, 80, 90, 100));
    EXPECT_THAT(Axis(0, 12, 0, 1).marks(), ElementsAre(0, 2, 4, 6, 8, 10, 12));
    EXPECT_THAT(Axis(0, 231, 0, 1).marks(), ElementsAre(0, 50, 100, 150, 200));
    EXPECT_THAT(Axis(0, 4, 0, 1).marks(), ElementsAre(0, 0.5, 1, 1.5, 2, 2.5, 3, 3.5, 4));
    EXPECT_FALSE(std::signbit(Axis(0, 4, 0, 1).marks().front()));
}

} // namespace

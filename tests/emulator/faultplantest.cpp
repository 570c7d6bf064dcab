#include "emulator/faults/faultplan.h"

#include "emulator/faults/faultwords.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace emulator {
namespace {

class FaultPlanTest : public testing::Test
{
protected:
    void givenFault(const QString &words) { plan.add(std::get<Fault>(parseFaultWords(words))); }

    QString whenTaken(Operation operation)
    {
        const auto fault = plan.take(operation);
        return fault ? faultName(fault->kind) : u"nothing"_s;
    }

    void givenConnectionFault(const QString &words)
    {
        plan.add(std::get<ConnectionFault>(parseFaultWords(words)));
    }

    QString whenConnected()
    {
        const auto fault = plan.takeForConnection();
        return fault ? faultName(fault->kind) : u"nothing"_s;
    }

    /// What becomes of a thousand calculations: "x" for one that was struck, "-" for one spared.
    QString series()
    {
        QString struck;
        for (int request = 0; request < 1000; ++request)
            struck.append(plan.take(Operation::Soft) ? u'x' : u'-');
        return struck;
    }

    FaultPlan plan;
};

TEST_F(FaultPlanTest, StrikesAsOftenAsOrdered)
{
    givenFault(u"soft lose 2"_s);
    EXPECT_EQ(whenTaken(Operation::Soft), u"lose");
    EXPECT_EQ(whenTaken(Operation::Soft), u"lose");
    EXPECT_EQ(whenTaken(Operation::Soft), u"nothing");
}

TEST_F(FaultPlanTest, LeavesOtherOperationsAlone)
{
    givenFault(u"soft lose"_s);
    EXPECT_EQ(whenTaken(Operation::Fiscal), u"nothing");
    EXPECT_EQ(whenTaken(Operation::Soft), u"lose");
}

TEST_F(FaultPlanTest, ForAllStrikesAnyOperation)
{
    givenFault(u"all half always"_s);
    for (const Operation operation : {Operation::Balance, Operation::Soft, Operation::Fiscal,
             Operation::Return, Operation::Rollback})
        EXPECT_EQ(whenTaken(operation), u"half");
}

TEST_F(FaultPlanTest, StrikesInTheOrderOfOrdering)
{
    givenFault(u"soft lose"_s);
    givenFault(u"all reset"_s);
    EXPECT_EQ(whenTaken(Operation::Soft), u"lose");
    EXPECT_EQ(whenTaken(Operation::Soft), u"reset");
}

TEST_F(FaultPlanTest, RefusesByCount)
{
    givenConnectionFault(u"refuse 2"_s);
    EXPECT_EQ(whenConnected(), u"refuse");
    EXPECT_EQ(whenConnected(), u"refuse");
    EXPECT_EQ(whenConnected(), u"nothing");
}

TEST_F(FaultPlanTest, ConnectionsAreStruckInTheOrderOfOrdering)
{
    givenConnectionFault(u"silence"_s);
    givenConnectionFault(u"stall 5"_s);
    EXPECT_EQ(whenConnected(), u"silence");
    EXPECT_EQ(whenConnected(), u"stall");
}

TEST_F(FaultPlanTest, AConnectionFaultTakesThePlaceOfItsKind)
{
    givenConnectionFault(u"refuse 5"_s);
    givenConnectionFault(u"silence"_s);
    givenConnectionFault(u"refuse 1"_s);
    EXPECT_EQ(whenConnected(), u"silence");
    EXPECT_EQ(whenConnected(), u"refuse");
    EXPECT_EQ(whenConnected(), u"nothing");
}

TEST_F(FaultPlanTest, RequestsAndConnectionsAreStruckApart)
{
    givenConnectionFault(u"refuse"_s);
    EXPECT_EQ(whenTaken(Operation::Soft), u"nothing");
    givenFault(u"all lose"_s);
    EXPECT_EQ(whenConnected(), u"refuse");
    EXPECT_EQ(whenConnected(), u"nothing");
    EXPECT_EQ(whenTaken(Operation::Soft), u"lose");
}

TEST_F(FaultPlanTest, ChanceFallsAsOftenAsOrdered)
{
    givenFault(u"soft lose 20%"_s);
    const auto struck = series().count(u'x');
    EXPECT_GT(struck, 160);
    EXPECT_LT(struck, 240);
}

TEST_F(FaultPlanTest, TheSameSeedGivesTheSameSeries)
{
    givenFault(u"soft lose 20% seed 7"_s);
    const QString first = series();
    plan.clear();
    givenFault(u"soft lose 20% seed 7"_s);
    EXPECT_EQ(series(), first);
    plan.clear();
    givenFault(u"soft lose 20% seed 8"_s);
    EXPECT_NE(series(), first);
}

TEST_F(FaultPlanTest, AHundredPerCentStrikeEveryRequest)
{
    givenFault(u"soft lose 100%"_s);
    EXPECT_FALSE(series().contains(u'-'));
}

TEST_F(FaultPlanTest, WhatChanceSparesTheNextFaultMayStrike)
{
    givenFault(u"soft lose 0.001%"_s);
    givenFault(u"soft reset"_s);
    EXPECT_EQ(whenTaken(Operation::Soft), u"reset");
}

TEST_F(FaultPlanTest, SwitchedOffItStrikesNobodyAndIsNotUsedUp)
{
    givenFault(u"soft lose"_s);
    givenConnectionFault(u"refuse"_s);
    const auto ids = std::pair(plan.entries()[0].id, plan.entries()[1].id);
    EXPECT_TRUE(plan.setOn(ids.first, false));
    EXPECT_TRUE(plan.setOn(ids.second, false));
    EXPECT_EQ(whenTaken(Operation::Soft), u"nothing");
    EXPECT_EQ(whenConnected(), u"nothing");
    EXPECT_TRUE(plan.setOn(ids.first, true));
    EXPECT_TRUE(plan.setOn(ids.second, true));
    EXPECT_EQ(whenTaken(Operation::Soft), u"lose");
    EXPECT_EQ(whenConnected(), u"refuse");
}

TEST_F(FaultPlanTest, OneOfManyIsTakenOut)
{
    givenFault(u"soft lose"_s);
    givenFault(u"soft reset"_s);
    const int id = plan.entries().front().id;
    EXPECT_TRUE(plan.remove(id));
    EXPECT_FALSE(plan.remove(id));
    EXPECT_FALSE(plan.setOn(id, true));
    EXPECT_EQ(whenTaken(Operation::Soft), u"reset");
}

TEST_F(FaultPlanTest, AnIdIsNeverUsedAgain)
{
    givenFault(u"soft lose"_s);
    const int id = plan.entries().front().id;
    plan.clear();
    givenFault(u"soft lose"_s);
    EXPECT_NE(plan.entries().front().id, id);
}

TEST_F(FaultPlanTest, ForgetsEverythingWhenCleared)
{
    givenFault(u"soft lose always"_s);
    givenConnectionFault(u"refuse 2"_s);
    plan.clear();
    EXPECT_EQ(whenTaken(Operation::Soft), u"nothing");
    EXPECT_EQ(whenConnected(), u"nothing");
}

} // namespace
} // namespace emulator

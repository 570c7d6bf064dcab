#include "emulator/faults/faultplan.h"

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
    plan.refuse({2});
    EXPECT_TRUE(plan.takeRefusal());
    EXPECT_TRUE(plan.takeRefusal());
    EXPECT_FALSE(plan.takeRefusal());
}

TEST_F(FaultPlanTest, ForgetsEverythingWhenCleared)
{
    givenFault(u"soft lose always"_s);
    plan.refuse({2});
    plan.clear();
    EXPECT_EQ(whenTaken(Operation::Soft), u"nothing");
    EXPECT_FALSE(plan.takeRefusal());
}

} // namespace
} // namespace emulator

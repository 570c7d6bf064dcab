// The plug-in's triggers on an action.

#include "tests/till/support/tillfixture.h"
#include "till/core/triggers.h"

using namespace Qt::StringLiterals;
using control::EActionType;

namespace {

class TriggersTest : public TillFixture
{
public:
    void givenTrigger(const QString &name, ActionTrigger::Priority priority,
        EContext::Result result = EContext::Result::Continue,
        ActionTrigger::Order order = ActionTrigger::Order::Before,
        EActionType type = EActionType::Total)
    {
        loyalty->hookIn(
            type, order,
            [this, name, result](const control::Action &) {
                ran.append(name);
                return result;
            },
            priority);
    }
    bool whenRunBefore()
    {
        return till::runTriggersBefore(*loyalty, control::Action(EActionType::Total), outcome);
    }

    QStringList ran;
    till::Outcome outcome;
};

TEST_F(TriggersTest, RunInTheOrderOfTheirPriority)
{
    givenTrigger(u"third"_s, ActionTrigger::Priority::Third);
    givenTrigger(u"first"_s, ActionTrigger::Priority::First);
    givenTrigger(u"first too"_s, ActionTrigger::Priority::First);
    EXPECT_TRUE(whenRunBefore());
    EXPECT_EQ(ran, (QStringList{u"first"_s, u"first too"_s, u"third"_s}));
    EXPECT_FALSE(outcome.result.isValid());
}

TEST_F(TriggersTest, OnlyThoseOfTheActionAndOrderRun)
{
    givenTrigger(u"other action"_s, ActionTrigger::Priority::First, EContext::Result::Stop,
        ActionTrigger::Order::Before, EActionType::Input);
    givenTrigger(u"other order"_s, ActionTrigger::Priority::First, EContext::Result::Stop,
        ActionTrigger::Order::After);
    EXPECT_TRUE(whenRunBefore());
    EXPECT_EQ(ran, QStringList());
}

TEST_F(TriggersTest, TheFirstThatStopsEndsTheRow)
{
    givenTrigger(u"stops"_s, ActionTrigger::Priority::First, EContext::Result::Refuse);
    givenTrigger(u"later"_s, ActionTrigger::Priority::Second);
    EXPECT_FALSE(whenRunBefore());
    EXPECT_EQ(ran, QStringList{u"stops"_s});
    EXPECT_EQ(outcome.result, QVariant(0));
}

TEST_F(TriggersTest, BehindAnActionNothingIsStopped)
{
    givenTrigger(u"stops"_s, ActionTrigger::Priority::First, EContext::Result::Stop,
        ActionTrigger::Order::After);
    givenTrigger(u"later"_s, ActionTrigger::Priority::Second, EContext::Result::Continue,
        ActionTrigger::Order::After);
    till::runTriggersAfter(*loyalty, control::Action(EActionType::Total), outcome);
    EXPECT_EQ(ran, (QStringList{u"stops"_s, u"later"_s}));
    EXPECT_FALSE(outcome.result.isValid());
}

TEST_F(TriggersTest, OneThatThrowsStopsNothingAndIsTold)
{
    loyalty->hookIn(EActionType::Total, ActionTrigger::Order::Before,
        [](const control::Action &) -> EContext::Result { throw std::runtime_error("broken"); });
    EXPECT_TRUE(whenRunBefore());
    ASSERT_TRUE(outcome.refusal);
    EXPECT_EQ(outcome.refusal->message.ru(), u"broken"_s);
}

} // namespace

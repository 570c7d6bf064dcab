#include "host/framework/loyaltysystems.h"
#include "tests/plugin/pluginfixture.h"

using namespace Qt::Literals::StringLiterals;

namespace {

class Triggers : public PluginFixture
{
protected:
    EContext::Result whenTriggered(qsizetype index, const control::Action &action)
    {
        return plugin().getTriggers().at(index).getHandler()(action);
    }
};

struct Row
{
    int action;
    int order;
    int priority;
};

TEST_F(Triggers, SevenTriggersAreAddedInTheirOrder)
{
    plugin().init();
    const QList<Row> rows{
        {133, 1, 1}, {144, 1, 1}, {192, 1, 2}, {201, 1, 1}, {201, 0, 1}, {5, 1, 1}, {198, 0, 3}};
    const auto triggers = plugin().getTriggers();
    ASSERT_EQ(triggers.size(), rows.size());
    for (qsizetype index = 0; index < rows.size(); ++index) {
        SCOPED_TRACE(index);
        EXPECT_EQ(static_cast<int>(triggers[index].getContext()), 6);
        EXPECT_EQ(static_cast<int>(triggers[index].getActionType()), rows[index].action);
        EXPECT_EQ(static_cast<int>(triggers[index].getOrder()), rows[index].order);
        EXPECT_EQ(static_cast<int>(triggers[index].getPriority()), rows[index].priority);
        EXPECT_EQ(static_cast<int>(triggers[index].getResult()), 0);
    }
}

/// Says which of the hooks was reached.
class HookedPlugin : public KorvelLoyaltyOnline
{
public:
    QString reached;

protected:
    EContext::Result beforeInput(const control::Action &) override { return note(u"input"_s); }
    EContext::Result beforePositionAdd(const control::Action &) override
    {
        return note(u"before position"_s);
    }
    EContext::Result afterPositionAdd(const control::Action &) override
    {
        return note(u"after position"_s);
    }
    EContext::Result beforeApplyModifiers(const control::Action &) const override
    {
        return const_cast<HookedPlugin *>(this)->note(u"modifiers"_s);
    }
    EContext::Result afterCouponAdd(const control::Action &) const override
    {
        return const_cast<HookedPlugin *>(this)->note(u"coupon"_s);
    }

private:
    EContext::Result note(const QString &hook)
    {
        reached = hook;
        return EContext::Result::Stop;
    }
};

TEST_F(Triggers, AnOverriddenHookIsTheOneThatIsCalled)
{
    HookedPlugin hooked;
    hooked.init();
    const QStringList hooks{
        u"input"_s, u"before position"_s, u"after position"_s, u"modifiers"_s, u"coupon"_s};
    for (qsizetype index = 0; index < hooks.size(); ++index) {
        const auto &handler = hooked.getTriggers().at(index + 2).getHandler();
        EXPECT_EQ(handler(control::Action(control::EActionType::Input)), EContext::Result::Stop);
        EXPECT_EQ(hooked.reached, hooks[index]);
    }
}

TEST_F(Triggers, CalculationAndPaymentWithPointsBringATechnicalCard)
{
    plugin().init();
    for (const qsizetype index : {0, 1}) {
        givenCurrentDocument();
        whenTriggered(index, control::Action(control::EActionType::Total));
        EXPECT_NE(plugin().getCard(), nullptr) << index;
    }
}

TEST_F(Triggers, InitRegistersTheLoyaltySystemOnce)
{
    EXPECT_TRUE(plugin().init());
    EXPECT_TRUE(Singleton<LoyaltySystems>::instance()->all().contains(&plugin()));
    EXPECT_FALSE(plugin().init());
}

TEST_F(Triggers, InitSubscribesToActivityEvents)
{
    plugin().init();
    plugin().offlineMode = true;
    Singleton<ActivityNotifier>::instance()->notify(Event(EActivityListener::DocumentEntered));
    EXPECT_FALSE(plugin().offlineMode);
}

TEST_F(Triggers, WithoutInitNoEventArrives)
{
    plugin().offlineMode = true;
    Singleton<ActivityNotifier>::instance()->notify(Event(EActivityListener::DocumentEntered));
    EXPECT_TRUE(plugin().offlineMode);
}

} // namespace

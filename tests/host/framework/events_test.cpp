#include "host/framework/action.h"
#include "host/framework/activitynotifier.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Notes what it is sent under its name, and then does what the test wants.
class Listener : public BaseActivityListener
{
public:
    Listener(QStringList &story, const QString &name)
        : m_story(story)
        , m_name(name)
    { }
    void handleEvent(const Event &event) override
    {
        m_story.append(m_name + QString::number(event.getCode()));
        if (reaction)
            reaction();
    }

    std::function<void()> reaction;

private:
    QStringList &m_story;
    QString m_name;
};

class ActivityNotifierTest : public testing::Test
{
protected:
    void givenSubscribed(const QList<Listener *> &listeners)
    {
        for (Listener *listener : listeners)
            m_notifier.subscribe(listener);
    }
    void whenNotified() { m_notifier.notify(Event(EActivityListener::ChequeClosed)); }

    QStringList m_story;
    ActivityNotifier m_notifier;
    Listener m_a{m_story, u"a"_s};
    Listener m_b{m_story, u"b"_s};
};

TEST_F(ActivityNotifierTest, DeliversInTheOrderOfSubscription)
{
    givenSubscribed({&m_b, &m_a});
    whenNotified();

    EXPECT_EQ(m_story, (QStringList{u"b10"_s, u"a10"_s}));
}

TEST_F(ActivityNotifierTest, DeliversOnceToAListenerSubscribedTwice)
{
    givenSubscribed({&m_a, &m_b, &m_a});
    whenNotified();

    EXPECT_EQ(m_story, (QStringList{u"a10"_s, u"b10"_s}));
}

TEST_F(ActivityNotifierTest, PassesOverAListenerThatIsGone)
{
    auto gone = std::make_unique<Listener>(m_story, u"gone"_s);
    givenSubscribed({gone.get(), &m_b});
    gone.reset();
    whenNotified();

    EXPECT_EQ(m_story, QStringList{u"b10"_s});
}

TEST_F(ActivityNotifierTest, DeliversAnEventOfAListenerBeforeTheFirstGoesOn)
{
    givenSubscribed({&m_a, &m_b});
    m_a.reaction = [this] {
        m_a.reaction = {};
        m_notifier.notify(Event(EActivityListener::ChequeCancelled));
    };
    whenNotified();

    EXPECT_EQ(m_story, (QStringList{u"a10"_s, u"a12"_s, u"b12"_s, u"b10"_s}));
}

TEST_F(ActivityNotifierTest, AListenerSubscribedMeanwhileHearsOfTheNextEvent)
{
    givenSubscribed({&m_a});
    m_a.reaction = [this] { m_notifier.subscribe(&m_b); };
    whenNotified();
    EXPECT_EQ(m_story, QStringList{u"a10"_s});

    whenNotified();
    EXPECT_EQ(m_story, (QStringList{u"a10"_s, u"a10"_s, u"b10"_s}));
}

TEST_F(ActivityNotifierTest, WhatAListenerThrowsReachesTheCaller)
{
    givenSubscribed({&m_a, &m_b});
    m_a.reaction = [] { throw std::runtime_error("full"); };

    EXPECT_THROW(whenNotified(), std::runtime_error);
    EXPECT_EQ(m_story, QStringList{u"a10"_s});
}

TEST(Event, CarriesACodeAndNamedArguments)
{
    Event event(EActivityListener::LoyaltyError, {{u"errorCode"_s, 1}});
    event.addArgument(u"errorMessage"_s, u"текст"_s);
    event.addArgument(u"errorCode"_s, 2);

    EXPECT_EQ(event.getCode(), 253);
    EXPECT_EQ(event.getArguments(),
        (QMap<QString, QVariant>{{u"errorCode"_s, 2}, {u"errorMessage"_s, u"текст"_s}}));
}

TEST(Action, SharesItsValuesWithItsCopies)
{
    const control::Action action(control::EActionType::AddCoupon, {{u"couponNumber"_s, u"99"_s}});
    const control::Action copy = action;
    copy.insert(u"done"_s, true);

    EXPECT_EQ(action.getType(), control::EActionType::AddCoupon);
    EXPECT_EQ(action.value(u"couponNumber"_s), u"99"_s);
    EXPECT_EQ(action.value(u"done"_s, false), true);
    EXPECT_EQ(action.value(u"none"_s, 7), 7);
    EXPECT_FALSE(action.value(u"none"_s).isValid());
}

TEST(Action, OfTheSameValuesSharesNothing)
{
    const QMap<QString, QVariant> values{{u"a"_s, 1}};
    const control::Action first(control::EActionType::Input, values);
    const control::Action second(control::EActionType::Input, values);
    first.insert(u"a"_s, 2);

    EXPECT_EQ(second.value(u"a"_s), 1);
}

} // namespace

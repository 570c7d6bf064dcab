// retry and set-aside.

#include "tests/till/queue/queueprogramfixture.h"

using namespace Qt::StringLiterals;

namespace {

class MendingTest : public QueueProgramFixture
{ };

TEST_F(MendingTest, SetAsideParksAndRetryLetsGo)
{
    givenMessage(u"aa-1"_s);
    givenMessage(u"bb-2"_s, MessageState::Refused);
    whenAsked({u"set-aside"_s, u"aa"_s, u"bb"_s});
    EXPECT_EQ(status, 0) << errors.toStdString();
    EXPECT_EQ(output, "changed: 2\n");
    EXPECT_EQ(stateOf(u"aa-1"_s), u"parked"_s);
    EXPECT_EQ(stateOf(u"bb-2"_s), u"parked"_s);
    whenAsked({u"retry"_s, u"bb"_s});
    EXPECT_EQ(status, 0);
    EXPECT_EQ(stateOf(u"aa-1"_s), u"parked"_s);
    EXPECT_EQ(stateOf(u"bb-2"_s), u"pending"_s);
}

TEST_F(MendingTest, WhatCannotBeChangedIsToldAndTheRestChanged)
{
    givenMessage(u"aa-1"_s, MessageState::Parked);
    givenMessage(u"bb-2"_s, MessageState::Delivered);
    const auto object = whenAskedForJson({u"retry"_s, u"aa"_s, u"bb"_s});
    thenFails(1, u"korvel-till: message bb-2 is delivered and stays as it is; "_s);
    EXPECT_EQ(object, nlohmann::json::parse(R"({"changed": ["aa-1"], "unchanged": ["bb-2"]})"));
    EXPECT_EQ(stateOf(u"aa-1"_s), u"pending"_s);
}

class ManyTest : public MendingTest
{
public:
    ManyTest()
    {
        givenMessage(u"aa"_s, MessageState::Pending);
        givenMessage(u"bb"_s, MessageState::Sending);
        givenMessage(u"cc"_s, MessageState::Delivered);
        givenMessage(u"dd"_s, MessageState::Refused);
        givenMessage(u"ee"_s, MessageState::Parked);
        QueueMessage moved = makeMessage(u"ff"_s);
        moved.state = MessageState::Parked;
        moved.movedTo = u"/media/stick/queue.export"_s;
        givenMessage(moved);
    }
    /// First letters of the states of all messages, in order.
    QString states() const
    {
        QString letters;
        for (const QString &id : {u"aa"_s, u"bb"_s, u"cc"_s, u"dd"_s, u"ee"_s, u"ff"_s})
            letters += id == u"ee"_s || id == u"ff"_s || id == u"aa"_s || id == u"dd"_s
                ? stateOf(id).left(2) + u' '
                : QString();
        EXPECT_EQ(stateOf(u"bb"_s), u"sending"_s);
        EXPECT_EQ(stateOf(u"cc"_s), u"delivered"_s);
        return letters.trimmed();
    }
};

TEST_F(ManyTest, RetryOfStatesLetsAllOfTheseGo)
{
    EXPECT_EQ(whenAskedForJson({u"retry"_s, u"--state-of"_s, u"parked"_s}),
        nlohmann::json::parse(R"({"changed": ["ee"], "unchanged": []})"));
    EXPECT_EQ(status, 0) << errors.toStdString();
    EXPECT_EQ(states(), u"pe re pe pa"_s);
}

TEST_F(ManyTest, RetryOfAllLeavesWhatIsInHandDeliveredOrMoved)
{
    EXPECT_EQ(whenAskedForJson({u"retry"_s, u"--all"_s})["changed"],
        nlohmann::json::parse(R"(["aa", "dd", "ee"])"));
    EXPECT_EQ(status, 0) << errors.toStdString();
    EXPECT_EQ(states(), u"pe pe pe pa"_s);
}

TEST_F(ManyTest, SetAsideOfStatesAndOfAll)
{
    whenAsked({u"set-aside"_s, u"--state-of"_s, u"refused"_s});
    EXPECT_EQ(output, "changed: 1\n");
    EXPECT_EQ(states(), u"pe pa pa pa"_s);
    whenAsked({u"set-aside"_s, u"--all"_s});
    EXPECT_EQ(output, "changed: 1\n");
    EXPECT_EQ(status, 0);
    EXPECT_EQ(states(), u"pa pa pa pa"_s);
}

TEST_F(ManyTest, WhatMeansNothingOrTooMuchChangesNothing)
{
    const QList<QPair<QStringList, QString>> table{{{u"retry"_s}, u"no message is named; "_s},
        {{u"retry"_s, u"aa"_s, u"--all"_s}, u"messages are named in more than one way; "_s},
        {{u"set-aside"_s, u"--all"_s, u"--state-of"_s, u"refused"_s},
            u"messages are named in more than one way; "_s},
        {{u"retry"_s, u"--state-of"_s, u"lost"_s}, u"there is no state \"lost\"; "_s},
        {{u"retry"_s, u"--state-of"_s, u"delivered"_s},
            u"messages that are delivered cannot be changed so; use pending, refused, parked"_s},
        {{u"set-aside"_s, u"--state-of"_s, u"parked"_s},
            u"messages that are parked cannot be changed so; use pending, refused"_s}};
    for (const auto &[words, beginning] : table) {
        whenAsked(words);
        thenFails(2, u"korvel-till: "_s + beginning);
    }
    EXPECT_EQ(states(), u"pe re pa pa"_s);
}

TEST_F(MendingTest, ManyMoreThanOneStepTakesAreChanged)
{
    constexpr int count = 450;
    QList<QueueMessage> messages;
    for (int number = 0; number < count; ++number) {
        messages.append(makeMessage(u"id-%1"_s.arg(number)));
        messages.last().state = MessageState::Parked;
    }
    MessageStore(databaseFile()).takeIn(messages);
    EXPECT_EQ(whenAskedForJson({u"retry"_s, u"--all"_s})["changed"].size(), count);
    EXPECT_EQ(whenAskedForJson({u"status"_s})["counts"]["pending"], count);
}

TEST_F(MendingTest, WhatTheFileCannotTakeStaysAsItIs)
{
    givenMessage(u"aa"_s);
    givenSpilled(makeMessage(u"bb"_s));
    whenAsked({u"set-aside"_s, u"--all"_s});
    EXPECT_EQ(output, "changed: 1\n");
    whenAsked({u"retry"_s, u"bb"_s});
    thenFails(1, u"korvel-till: message bb is pending and stays as it is; "_s);
}

TEST_F(MendingTest, AMovedMessageNamesItsFile)
{
    QueueMessage moved = makeMessage(u"aa-1"_s);
    moved.state = MessageState::Parked;
    moved.movedTo = u"/media/stick/queue.export"_s;
    givenMessage(moved);
    whenAsked({u"retry"_s, u"aa"_s});
    thenFails(1, u"korvel-till: message aa-1 was moved to /media/stick/queue.export; "_s);
}

TEST_F(MendingTest, OneUnknownIdChangesNothing)
{
    givenMessage(u"aa-1"_s);
    whenAsked({u"set-aside"_s, u"aa"_s, u"dd"_s});
    thenFails(2, u"korvel-till: no message has an id that begins with \"dd\"; "_s);
    EXPECT_EQ(stateOf(u"aa-1"_s), u"pending"_s);
}

TEST_F(MendingTest, AMessageThatIsNamedTwiceIsChangedOnce)
{
    givenMessage(u"aa-1"_s);
    const auto object = whenAskedForJson({u"set-aside"_s, u"aa"_s, u"aa-1"_s});
    EXPECT_EQ(status, 0) << errors.toStdString();
    EXPECT_EQ(object, nlohmann::json::parse(R"({"changed": ["aa-1"], "unchanged": []})"));
}

} // namespace

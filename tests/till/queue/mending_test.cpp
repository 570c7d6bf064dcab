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

// Several deliverers: a message is in one's hands at a time, and comes back from a dead one.

#include "tests/host/queue/leasefixture.h"
#include "tests/support/logcapture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace {

class LeaseTest : public LeaseFixture
{
protected:
    /// The lease of what is in hand is another one's, and over.
    static void givenEndedLeaseOfAnother()
    {
        ask(u"UPDATE messages SET lease_owner = 'another', "
            u"lease_until = '2024-11-21T11:59:59.999Z' WHERE state = 'sending'"_s);
    }
};

TEST_F(LeaseTest, AMessageInHandIsNotGivenToAnother)
{
    givenMessageOfLane(u"a"_s, u"1"_s);
    EXPECT_EQ(idOf(one.checkOut(wanted)), u"a"_s);
    const CheckedOut second = other.checkOut(wanted);
    EXPECT_EQ(idOf(second), u"none"_s);
    EXPECT_TRUE(second.othersAtWork);
}

TEST_F(LeaseTest, OneMessageOfALaneAtATime)
{
    givenMessageOfLane(u"a"_s, u"1"_s);
    givenMessageOfLane(u"b"_s, u"1"_s);
    givenMessageOfLane(u"c"_s, u"2"_s);
    EXPECT_EQ(idOf(one.checkOut(wanted)), u"a"_s);
    EXPECT_EQ(idOf(other.checkOut(wanted)), u"c"_s);
}

TEST_F(LeaseTest, LaneIsFreeAgainWhenItsMessageIsSettled)
{
    givenMessageOfLane(u"a"_s, u"1"_s);
    givenMessageOfLane(u"b"_s, u"1"_s);
    QueueMessage message = *one.checkOut(wanted).message;
    message.state = MessageState::Delivered;
    one.settle(message);
    EXPECT_EQ(idOf(other.checkOut(wanted)), u"b"_s);
}

TEST_F(LeaseTest, MessageWhoseLeaseIsOverIsTakenUp)
{
    givenMessageOfLane(u"a"_s, u"1"_s);
    static_cast<void>(one.checkOut(wanted));
    givenEndedLeaseOfAnother();
    EXPECT_EQ(idOf(other.checkOut(wanted)), u"a"_s);
    EXPECT_EQ(stateOf(u"a"_s), (QVariantList{u"sending"_s, 2, 1}));
}

TEST_F(LeaseTest, OutcomeOfALostLeaseChangesNothing)
{
    const LogCapture log(u"poshost.queue"_s);
    givenMessageOfLane(u"a"_s, u"1"_s);
    QueueMessage message = *one.checkOut(wanted).message;
    ask(u"UPDATE messages SET lease_until = '2024-11-21T11:59:59.999Z'"_s);
    ASSERT_EQ(idOf(other.checkOut(wanted)), u"a"_s);
    message.state = MessageState::Refused;
    one.settle(message);
    EXPECT_EQ(stateOf(u"a"_s).first(), u"sending"_s);
    EXPECT_THAT(log.lines().value(0).toStdString(), testing::HasSubstr("was taken from"));
}

TEST_F(LeaseTest, MessageThatEndsItsDelivererTwiceIsParked)
{
    const LogCapture log(u"poshost.queue"_s);
    givenMessageOfLane(u"a"_s, u"1"_s);
    givenMessageOfLane(u"b"_s, u"1"_s);
    static_cast<void>(one.checkOut(wanted));
    givenEndedLeaseOfAnother();
    static_cast<void>(one.checkOut(wanted));
    givenEndedLeaseOfAnother();
    const CheckedOut next = one.checkOut(wanted);
    EXPECT_EQ(idOf(next), u"b"_s);
    EXPECT_EQ(next.parked, 1);
    EXPECT_EQ(stateOf(u"a"_s), (QVariantList{u"parked"_s, 2, 2}));
    EXPECT_TRUE(log.lines().value(0).contains(u"ERROR"_s));
}

TEST_F(LeaseTest, WhatAStoreCouldNotSettleItTakesUpAgainWithoutBlame)
{
    givenMessageOfLane(u"a"_s, u"1"_s);
    for (int attempt = 1; attempt <= 3; ++attempt)
        EXPECT_EQ(idOf(one.checkOut(wanted)), u"a"_s);
    EXPECT_EQ(stateOf(u"a"_s), (QVariantList{u"sending"_s, 3, 0}));
}

} // namespace

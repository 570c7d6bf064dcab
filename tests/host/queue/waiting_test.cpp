// When messages wait, for how long, and when a person must look.

#include "host/framework/currenttime.h"
#include "host/queue/backoff.h"
#include "tests/host/queue/queuefixture.h"
#include "tests/support/logcapture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace {

const QDateTime noon(QDate(2024, 11, 21), QTime(12, 0), Qt::UTC);

class WaitingTest : public testing::Test, public QueueFixture
{
protected:
    WaitingTest()
    {
        MockFactory<CurrentTime>::setCreator([this] {
            class Clock : public CurrentTime
            {
            public:
                explicit Clock(const QDateTime &time)
                    : m_time(time)
                { }
                [[nodiscard]] QDateTime currentDateTime() const override { return m_time; }

            private:
                QDateTime m_time;
            };
            return QSharedPointer<Clock>::create(now);
        });
    }
    static Exchange unreached() { return Exchange(RestClient::ConnectionRefused); }
    static Exchange failing() { return Exchange(500); }
    DeliveryReport whenDueDelivered() { return queue()->deliverDue(); }
    static void givenNextAttempt(const QDateTime &time)
    {
        ask(u"UPDATE messages SET next_attempt = ?"_s, {time.toUTC().toString(Qt::ISODateWithMs)});
    }
    [[nodiscard]] static QueueMessage first() { return queue()->list().value(0); }

    QDateTime now = noon;
};

TEST_F(WaitingTest, FreshMessageIsDue)
{
    givenMessage(u"one"_s);
    EXPECT_EQ(queue()->nextDue(), noon);
    EXPECT_EQ(whenDueDelivered().delivered, 1);
    EXPECT_FALSE(queue()->nextDue().isValid());
}

TEST_F(WaitingTest, FailedAttemptIsFollowedByAWait)
{
    givenMessage(u"one"_s);
    ask(u"UPDATE messages SET attempts = 1000"_s);
    bool waited = false;
    // Chance may choose no wait at all, but not twenty times.
    for (int attempt = 0; attempt < 20 && !waited; ++attempt) {
        givenExchanges({failing()});
        EXPECT_EQ(whenDelivered().failed, 1);
        EXPECT_LE(first().nextAttempt, noon.addMSecs(backoff::longestWait.count()));
        waited = first().nextAttempt > noon;
    }
    EXPECT_TRUE(waited);
    EXPECT_EQ(first().lastCode, 500);
    EXPECT_EQ(first().lastAttempt, noon);
}

TEST_F(WaitingTest, OnlyWhatIsDueIsSentWhenDue)
{
    givenMessage(u"one"_s);
    givenNextAttempt(noon.addSecs(60));
    givenMessage(u"two"_s);
    EXPECT_EQ(whenDueDelivered().delivered, 1);
    EXPECT_EQ(sentBodies(), QStringList{u"two"_s});
    EXPECT_EQ(queue()->nextDue(), noon.addSecs(60));
    now = noon.addSecs(60);
    EXPECT_EQ(whenDueDelivered().delivered, 1);
}

TEST_F(WaitingTest, DeliveringNowMindsNoWait)
{
    givenMessage(u"one"_s);
    givenNextAttempt(noon.addSecs(60));
    EXPECT_EQ(whenDelivered().delivered, 1);
}

TEST_F(WaitingTest, ClockThatIsSetBackHoldsNothingUpForLong)
{
    givenMessage(u"one"_s);
    givenNextAttempt(noon);
    now = noon.addMSecs(-backoff::longestWait.count());
    EXPECT_EQ(whenDueDelivered().delivered, 0);
    now = now.addMSecs(-1);
    EXPECT_EQ(whenDueDelivered().delivered, 1);
}

TEST_F(WaitingTest, OrderIsThatOfEnqueueingWhateverTheClock)
{
    givenMessage(u"one"_s);
    now = noon.addDays(-1);
    givenMessage(u"two"_s);
    whenDelivered();
    EXPECT_EQ(sentBodies(), (QStringList{u"one"_s, u"two"_s}));
}

class HoldingTest : public WaitingTest
{
protected:
    /// Passes that end since nothing is reached, until chance gives a hold that can be seen.
    void givenHold()
    {
        for (int number = 0; number < 4; ++number)
            givenMessage(QString::number(number));
        for (int pass = 0; pass < 30 && held() <= noon; ++pass) {
            givenExchanges({unreached(), unreached(), unreached()});
            ASSERT_TRUE(whenDelivered().stopped);
        }
        givenExchanges({});
        givenNextAttempt(noon);
        ASSERT_GT(held(), noon);
    }
    static QDateTime held()
    {
        const QVariantList values = ask(u"SELECT value FROM facts WHERE name LIKE 'held_until%'"_s);
        return QDateTime::fromString(values.value(0).toString(), Qt::ISODateWithMs);
    }
    [[nodiscard]] qsizetype sent() const { return exchanges().size(); }
};

TEST_F(HoldingTest, AfterAStoppedPassNothingIsSentForAWhile)
{
    givenHold();
    const auto before = sent();
    EXPECT_EQ(queue()->nextDue(), held());
    EXPECT_EQ(whenDueDelivered().delivered, 0);
    EXPECT_EQ(sent(), before);
    now = held();
    EXPECT_EQ(whenDueDelivered().delivered, 4);
}

TEST_F(HoldingTest, DeliveringNowMindsNoHoldAndEndsIt)
{
    givenHold();
    EXPECT_EQ(whenDelivered().delivered, 4);
    EXPECT_FALSE(held().isValid());
    givenMessage(u"new"_s);
    EXPECT_EQ(whenDueDelivered().delivered, 1);
}

TEST_F(HoldingTest, AFailureDoesNotEndIt)
{
    givenHold();
    const QDateTime before = held();
    givenExchanges({unreached()});
    queue()->deliver([](const DeliveryReport &) { return false; });
    EXPECT_EQ(held(), before);
}

TEST_F(HoldingTest, ClockThatIsSetBackEndsAHold)
{
    givenHold();
    now = held().addMSecs(-backoff::longestWait.count() - 1);
    givenNextAttempt(now);
    EXPECT_EQ(whenDueDelivered().delivered, 4);
}

class ParkingTest : public WaitingTest
{
protected:
    ParkingTest() { givenMessage(u"one"_s); }

    DeliveryReport whenAnswered(const Exchange &exchange, const QDateTime &time)
    {
        now = time;
        givenExchanges({exchange});
        return whenDelivered();
    }
};

TEST_F(ParkingTest, MessageIsParkedAfterAWeekOfOtherAnswers)
{
    const LogCapture log(u"poshost.queue"_s);
    EXPECT_EQ(whenAnswered(failing(), noon).failed, 1);
    EXPECT_EQ(whenAnswered(failing(), noon.addDays(7).addMSecs(-1)).parked, 0);
    const DeliveryReport report = whenAnswered(failing(), noon.addDays(7));
    EXPECT_EQ(report.parked, 1);
    EXPECT_EQ(report.failed, 0);
    EXPECT_EQ(first().state, MessageState::Parked);
    EXPECT_EQ(log.lines().filter(u"ERROR"_s).size(), 1);
}

TEST_F(ParkingTest, SettingSaysAfterHowManyDays)
{
    givenSetting(u"Queue:parkDays"_s, u"1"_s);
    whenAnswered(failing(), noon);
    EXPECT_EQ(whenAnswered(failing(), noon.addDays(1)).parked, 1);
}

TEST_F(ParkingTest, ServiceThatIsAwayParksNothing)
{
    whenAnswered(unreached(), noon);
    whenAnswered(unreached(), noon.addDays(8));
    EXPECT_EQ(whenAnswered(failing(), noon.addDays(9)).parked, 0);
    EXPECT_EQ(first().state, MessageState::Pending);
}

TEST_F(ParkingTest, ClockThatIsSetBackBeginsTheWeekAgain)
{
    whenAnswered(failing(), noon);
    whenAnswered(failing(), noon.addDays(-30));
    EXPECT_EQ(whenAnswered(failing(), noon.addDays(-30 + 6)).parked, 0);
    EXPECT_EQ(whenAnswered(failing(), noon.addDays(-30 + 7)).parked, 1);
}

TEST_F(ParkingTest, WhatIsSettledForgetsOtherAnswers)
{
    whenAnswered(failing(), noon);
    EXPECT_TRUE(first().answeredOtherwiseSince.isValid());
    queue()->setVerdict(u"loyalty"_s, [](int, const QByteArray &) {
        return Verdict{Verdict::Outcome::Refused, {}, 80241};
    });
    whenAnswered(Exchange(), noon);
    EXPECT_FALSE(first().answeredOtherwiseSince.isValid());
}

class UnauthorisedTest : public WaitingTest, public testing::WithParamInterface<int>
{ };

TEST_P(UnauthorisedTest, EndsThePassAndParksNothing)
{
    givenSetting(u"Queue:parkDays"_s, u"0"_s);
    givenMessage(u"one"_s);
    givenMessage(u"two"_s);
    givenExchanges({Exchange(GetParam())});
    const DeliveryReport report = whenDelivered();
    EXPECT_TRUE(report.unauthorised);
    EXPECT_EQ(report.failed, 1);
    EXPECT_EQ(exchanges().size(), 1);
    EXPECT_EQ(queue()->waiting(), 2);
}

TEST_P(UnauthorisedTest, HoldsBackWhatIsDueUntilTheServiceAccepts)
{
    // A shared queue keeps them for each machine.
    const auto fact = [](const QString &name) {
        return ask(u"SELECT value FROM facts WHERE name LIKE ?"_s, {QString(name + u'%')})
            .value(0)
            .toString();
    };
    givenMessage(u"one"_s);
    givenMessage(u"two"_s);
    givenExchanges({Exchange(GetParam()), Exchange(GetParam())});
    whenDelivered();
    EXPECT_EQ(fact(u"stops_in_row"_s), u"1"_s);
    EXPECT_FALSE(fact(u"held_until"_s).isEmpty());
    whenDelivered();
    EXPECT_EQ(fact(u"stops_in_row"_s), u"2"_s);
    EXPECT_EQ(whenDelivered().delivered, 2);
    EXPECT_EQ(fact(u"stops_in_row"_s).toInt(), 0);
    EXPECT_TRUE(fact(u"held_until"_s).isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Statuses, UnauthorisedTest, testing::Values(401, 403));

class KeepingTest : public WaitingTest
{
protected:
    int kept() { return ask(u"SELECT count(*) FROM messages"_s).value(0).toInt(); }
};

TEST_F(KeepingTest, DeliveredMessageGoesAfterThirtyDays)
{
    givenMessage(u"one"_s);
    whenDelivered();
    now = noon.addDays(30);
    whenDelivered();
    EXPECT_EQ(kept(), 1);
    now = now.addMSecs(1);
    whenDelivered();
    EXPECT_EQ(kept(), 0);
}

TEST_F(KeepingTest, SettingSaysForHowManyDays)
{
    givenSetting(u"Queue:keepDays"_s, u"2"_s);
    givenMessage(u"one"_s);
    whenDelivered();
    now = noon.addDays(2).addMSecs(1);
    whenDelivered();
    EXPECT_EQ(kept(), 0);
}

TEST_F(KeepingTest, WhatTheProgramOfBeforeHasJustDeliveredStays)
{
    givenMessage(u"one"_s);
    ask(u"UPDATE messages SET state = 'delivered'"_s);
    whenDelivered();
    EXPECT_EQ(kept(), 1);
}

TEST_F(KeepingTest, WhatIsNotDeliveredStays)
{
    for (const QString &state : {u"refused"_s, u"parked"_s, u"pending"_s}) {
        givenMessage(state);
        ask(u"UPDATE messages SET state = ?, settled = '2000-01-01T00:00:00.000Z' "
            u"WHERE number = (SELECT max(number) FROM messages)"_s,
            {state});
    }
    givenExchanges({failing()});
    whenDelivered();
    EXPECT_EQ(kept(), 3);
}

TEST_F(WaitingTest, ARefusedOneAmongAHundredStopsNone)
{
    for (int number = 0; number < 100; ++number)
        givenMessage(QString::number(number));
    queue()->setVerdict(u"loyalty"_s, [](int, const QByteArray &body) {
        return Verdict{
            body == "no" ? Verdict::Outcome::Refused : Verdict::Outcome::Delivered, {}, 80241};
    });
    QList<Exchange> answers(50);
    answers.append(Exchange(RestClient::None, "no"));
    givenExchanges(answers);
    const DeliveryReport report = whenDelivered();
    EXPECT_EQ(report.delivered, 99);
    EXPECT_EQ(report.refused, 1);
    EXPECT_EQ(first().lastCode, 80241);
    EXPECT_EQ(first().settled, noon);
}

} // namespace

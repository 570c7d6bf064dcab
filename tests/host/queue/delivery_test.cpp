// One pass of delivery: in order, each message once, counted before it goes out, judged by answer.

#include "tests/host/queue/queueengine.h"
#include "tests/host/queue/queuefixture.h"
#include "tests/support/logcapture.h"

#include <gtest/gtest.h>

#include <stdexcept>

using namespace Qt::Literals::StringLiterals;

namespace {

class DeliveryTest : public testing::Test, public QueueFixture
{
protected:
    void givenMessages(const QStringList &bodies)
    {
        for (const QString &body : bodies)
            givenMessage(body);
    }
    static void givenVerdict(const Verdict &verdict)
    {
        queue()->setVerdict(u"loyalty"_s, [verdict](int, const QByteArray &) { return verdict; });
    }
    static void thenReportIs(const DeliveryReport &report, int delivered, int refused, int failed)
    {
        EXPECT_EQ(report.delivered, delivered);
        EXPECT_EQ(report.refused, refused);
        EXPECT_EQ(report.failed, failed);
    }
};

TEST_F(DeliveryTest, EmptyQueueSendsNothing)
{
    const auto report = whenDelivered();
    thenReportIs(report, 0, 0, 0);
    EXPECT_FALSE(report.stopped);
    EXPECT_FALSE(report.busy);
    EXPECT_TRUE(exchanges().isEmpty());
}

TEST_F(DeliveryTest, SendsInTheOrderOfEnqueueing)
{
    givenMessages({u"one"_s, u"two"_s, u"three"_s});
    thenReportIs(whenDelivered(), 3, 0, 0);
    EXPECT_EQ(sentBodies(), (QStringList{u"one"_s, u"two"_s, u"three"_s}));
    EXPECT_EQ(queue()->waiting(), 0);
    EXPECT_TRUE(queue()->list().isEmpty());
}

TEST_F(DeliveryTest, SendsAddressHeadersAndBytesAsTheyWereEnqueued)
{
    givenMessage(u"<a>\u0001Ёж\r\n</a>"_s);
    whenDelivered();
    EXPECT_EQ(exchanges().first().url, QUrl(u"http://service/"_s));
    EXPECT_EQ(exchanges().first().headers.value(u"Authorization"_s), u"Basic c2VjcmV0"_s);
    EXPECT_EQ(exchanges().first().body, u"<a>\u0001Ёж\r\n</a>"_s.toUtf8());
}

TEST_F(DeliveryTest, DeliveredMessageIsKeptButNotSentAgain)
{
    givenMessage(u"one"_s);
    whenDelivered();
    thenReportIs(whenDelivered(), 0, 0, 0);
    EXPECT_EQ(exchanges().size(), 1);
    EXPECT_EQ(ask(u"SELECT state, body FROM messages"_s),
        (QVariantList{u"delivered"_s, QByteArray("one")}));
}

TEST_F(DeliveryTest, AttemptIsCountedOnDiskBeforeTheRequestGoesOut)
{
    givenMessage(u"one"_s);
    QVariantList seen;
    givenDuringExchange([&seen] { seen = ask(u"SELECT state, attempts FROM messages"_s); });
    whenDelivered();
    EXPECT_EQ(seen, (QVariantList{u"sending"_s, 1}));
}

TEST_F(DeliveryTest, OthersCanWriteWhileARequestIsOnItsWay)
{
    givenMessage(u"one"_s);
    givenDuringExchange([this] {
        givenDuringExchange({});
        DBQueueBroker().enqueue(u"loyalty"_s, {{u"body"_s, u"two"_s}}, {});
    });
    thenReportIs(whenDelivered(), 2, 0, 0);
    EXPECT_EQ(sentBodies(), (QStringList{u"one"_s, u"two"_s}));
}

TEST_F(DeliveryTest, WithoutAVerdictOnlyAnAnswerWith2xxCounts)
{
    givenMessages({u"one"_s, u"two"_s, u"three"_s});
    givenExchanges({Exchange(500), Exchange(), Exchange(RestClient::TimedOut)});
    thenReportIs(whenDelivered(), 1, 0, 2);
    EXPECT_EQ(queue()->waiting(), 2);
    EXPECT_EQ(queue()->list().first().lastError, u"Ошибка 500"_s);
    EXPECT_EQ(queue()->list().first().state, MessageState::Pending);
}

TEST_F(DeliveryTest, VerdictSeesErrorCodeAndBody)
{
    givenMessages({u"one"_s, u"two"_s});
    givenExchanges({Exchange(RestClient::None, "<answer/>"), Exchange(503)});
    QList<QPair<int, QByteArray>> seen;
    queue()->setVerdict(u"loyalty"_s, [&seen](int errorCode, const QByteArray &body) {
        seen.append({errorCode, body});
        return Verdict{Verdict::Outcome::Delivered, {}};
    });
    thenReportIs(whenDelivered(), 2, 0, 0);
    EXPECT_EQ(seen, (QList<QPair<int, QByteArray>>{{0, "<answer/>"}, {503, {}}}));
}

TEST_F(DeliveryTest, VerdictIsThatOfTheMessagesQueue)
{
    givenVerdict({Verdict::Outcome::Refused, {}});
    givenMessage(u"one"_s);
    givenMessage(u"two"_s, u"other"_s);
    thenReportIs(whenDelivered(), 1, 1, 0);
    EXPECT_EQ(queue()->list().first().queue, u"loyalty"_s);
}

TEST_F(DeliveryTest, RefusedMessageIsKeptWithItsAnswerAndNotSentAgain)
{
    givenVerdict({Verdict::Outcome::Refused, u"карта закрыта"_s});
    givenMessage(u"one"_s);
    givenExchanges({Exchange(RestClient::None, "<answer/>")});
    whenDelivered();
    whenDelivered();
    EXPECT_EQ(exchanges().size(), 1);
    EXPECT_EQ(queue()->waiting(), 0);
    const QueueMessage kept = queue()->list().first();
    EXPECT_EQ(kept.state, MessageState::Refused);
    EXPECT_EQ(kept.lastError, u"карта закрыта"_s);
    EXPECT_EQ(kept.answer, "<answer/>");
    EXPECT_EQ(kept.attempts, 1);
}

TEST_F(DeliveryTest, OneBadMessageStopsNoneBehindIt)
{
    givenMessages({u"bad"_s, u"good"_s});
    queue()->setVerdict(u"loyalty"_s, [](int, const QByteArray &body) {
        return Verdict{body == "no" ? Verdict::Outcome::TryAgain : Verdict::Outcome::Delivered, {}};
    });
    givenExchanges({Exchange(RestClient::None, "no")});
    thenReportIs(whenDelivered(), 1, 0, 1);
    EXPECT_EQ(queue()->list().first().answer, "no");
}

TEST_F(DeliveryTest, EachWaitingMessageIsSentOnceAPass)
{
    givenVerdict({Verdict::Outcome::TryAgain, {}});
    givenMessages({u"one"_s, u"two"_s});
    thenReportIs(whenDelivered(), 0, 0, 2);
    thenReportIs(whenDelivered(), 0, 0, 2);
    EXPECT_EQ(queue()->list().first().attempts, 2);
    EXPECT_EQ(exchanges().at(0).body, exchanges().at(2).body);
}

TEST_F(DeliveryTest, SuccessClearsTheLastError)
{
    givenMessage(u"one"_s);
    givenExchanges({Exchange(500)});
    whenDelivered();
    whenDelivered();
    EXPECT_EQ(ask(u"SELECT last_error, attempts FROM messages"_s), (QVariantList{u""_s, 2}));
}

TEST_F(DeliveryTest, VerdictThatThrowsLeavesTheMessageWaiting)
{
    queue()->setVerdict(u"loyalty"_s,
        [](int, const QByteArray &) -> Verdict { throw std::runtime_error("cannot judge"); });
    givenMessages({u"one"_s, u"two"_s});
    thenReportIs(whenDelivered(), 0, 0, 2);
    EXPECT_EQ(queue()->list().first().lastError, u"cannot judge"_s);
}

TEST_F(DeliveryTest, LongAnswerIsKeptInPart)
{
    givenVerdict({Verdict::Outcome::Refused, {}});
    givenMessage(u"one"_s);
    givenExchanges({Exchange(RestClient::None, QByteArray(70000, 'x'))});
    whenDelivered();
    EXPECT_EQ(queue()->list().first().answer, QByteArray(65536, 'x'));
}

TEST_F(DeliveryTest, AnswerThatIsNoSuccessIsKeptInPart)
{
    givenMessage(u"one"_s);
    givenExchanges({Exchange(503, QByteArray(70000, 'x'))});
    whenDelivered();
    EXPECT_EQ(queue()->list().first().answer, QByteArray(65536, 'x'));
}

TEST_F(DeliveryTest, AnswerOfTheAttemptBeforeIsNotThatOfThisOne)
{
    givenMessage(u"one"_s);
    givenExchanges({Exchange(503, "<html>"), Exchange(RestClient::TimedOut)});
    whenDelivered();
    whenDelivered();
    EXPECT_EQ(queue()->list().first().answer, "");
}

TEST_F(DeliveryTest, VerdictIsNotGivenOnAnAnswerThatIsNoSuccess)
{
    givenMessage(u"one"_s);
    givenExchanges({Exchange(503, "<html>")});
    QByteArray judgedBody = "unset";
    queue()->setVerdict(u"loyalty"_s, [&judgedBody](int, const QByteArray &body) {
        judgedBody = body;
        return Verdict{Verdict::Outcome::TryAgain, {}};
    });
    whenDelivered();
    EXPECT_EQ(judgedBody, "");
}

TEST_F(DeliveryTest, MessageOfAKilledDelivererIsTakenUpAgain)
{
    givenMessage(u"one"_s);
    ask(u"UPDATE messages SET state = 'sending', attempts = 1"_s);
    EXPECT_EQ(queue()->waiting(), 1);
    thenReportIs(whenDelivered(), 1, 0, 0);
    EXPECT_EQ(ask(u"SELECT state, attempts FROM messages"_s), (QVariantList{u"delivered"_s, 2}));
}

TEST_F(DeliveryTest, WhatAnotherDelivererHasInHandIsToldAsBusy)
{
    givenMessage(u"one"_s);
    const auto other = queueengine::openStore();
    ASSERT_TRUE(other->checkOut({QDateTime::currentDateTimeUtc(), 0, false}).message);
    EXPECT_TRUE(whenDelivered().busy);
    givenMessage(u"two"_s);
    ask(u"UPDATE messages SET lane = id WHERE state = 'pending'"_s);
    EXPECT_FALSE(whenDelivered().busy) << "it had something to do";
}

TEST_F(DeliveryTest, ParkedMessageIsPassedOver)
{
    givenMessages({u"one"_s, u"two"_s});
    ask(u"UPDATE messages SET state = 'parked' WHERE number = (SELECT min(number) FROM messages)"_s);
    whenDelivered();
    EXPECT_EQ(sentBodies(), QStringList{u"two"_s});
    EXPECT_EQ(queue()->list().first().state, MessageState::Parked);
}

TEST_F(DeliveryTest, LogNamesTheMessageAndNoCredentials)
{
    const LogCapture log(u"poshost.queue"_s);
    givenMessage(u"one"_s);
    const QString id = queue()->list().first().id;
    whenDelivered();
    ASSERT_EQ(log.lines().size(), 1);
    EXPECT_TRUE(log.lines().first().contains(id));
    EXPECT_FALSE(log.lines().first().contains(u"c2VjcmV0"_s));
}

struct FailureCase
{
    const char *name;
    int errorCode;
    bool stops;
};

class ConnectionFailureTest : public testing::TestWithParam<FailureCase>, public QueueFixture
{ };

TEST_P(ConnectionFailureTest, ThreeInARowEndThePass)
{
    for (int message = 0; message < 4; ++message)
        givenMessage(QString::number(message));
    const Exchange failure(GetParam().errorCode);
    givenExchanges({failure, failure, failure, failure});
    EXPECT_EQ(whenDelivered().stopped, GetParam().stops);
    EXPECT_EQ(exchanges().size(), GetParam().stops ? 3 : 4);
    EXPECT_EQ(queue()->waiting(), 4);
}

const FailureCase failures[]{
    {"Refused", RestClient::ConnectionRefused, true},
    {"Name", RestClient::NameNotResolved, true},
    {"Tls", RestClient::TlsFailed, true},
    {"TimeOut", RestClient::TimedOut, true},
    {"AnswerCut", RestClient::AnswerCut, true},
    {"Breaker", RestClient::BreakerOpen, true},
    {"Exchange", RestClient::ExchangeFailed, true},
    {"BadAddress", RestClient::BadAddress, false},
    {"AnswerTooLarge", RestClient::AnswerTooLarge, false},
    {"NotFound", 404, false},
    {"ServerError", 503, false},
};

INSTANTIATE_TEST_SUITE_P(Exchanges, ConnectionFailureTest, testing::ValuesIn(failures),
    [](const auto &row) { return row.param.name; });

TEST_F(DeliveryTest, AnAnswerBetweenFailuresStartsTheCountAgain)
{
    const Exchange failure(RestClient::ConnectionRefused);
    givenMessages({u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s});
    givenExchanges({failure, failure, Exchange(503), failure, failure});
    EXPECT_FALSE(whenDelivered().stopped);
    EXPECT_EQ(exchanges().size(), 5);
}

TEST_F(DeliveryTest, ObserverIsToldAfterEveryMessage)
{
    givenMessage(u"one"_s);
    givenMessage(u"two"_s);
    givenMessage(u"three"_s);
    givenExchanges({Exchange(), Exchange(500)});
    QList<int> settled;
    queue()->deliver([&settled](const DeliveryReport &soFar) {
        settled.append(10 * soFar.delivered + soFar.failed);
        return true;
    });
    EXPECT_EQ(settled, (QList<int>{10, 11, 21}));
}

TEST_F(DeliveryTest, ObserverCanEndThePassBehindTheMessageInHand)
{
    givenMessage(u"one"_s);
    givenMessage(u"two"_s);
    const auto endAtOnce = [](const DeliveryReport &) { return false; };
    EXPECT_EQ(queue()->deliver(endAtOnce).delivered, 1);
    EXPECT_EQ(sentBodies(), QStringList{u"one"_s});
    EXPECT_EQ(queue()->list().value(0).state, MessageState::Pending);
    EXPECT_EQ(queue()->deliverDue(endAtOnce).delivered, 1);
    EXPECT_EQ(queue()->waiting(), 0);
}

} // namespace

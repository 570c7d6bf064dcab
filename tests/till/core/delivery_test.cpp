// The outgoing queue is delivered on demand and after a closed cheque.

#include "host/net/restclient.h"
#include "host/queue/dbqueuebroker.h"
#include "host/storage/statefolder.h"
#include "tests/host/storage/files.h"
#include "tests/support/scriptedserver.h"
#include "tests/till/support/tillfixture.h"
#include "till/core/loyaltyverdict.h"

using namespace Qt::StringLiterals;

namespace {

QByteArray answerWith(const QByteArray &code)
{
    return "<ChequeResponse><ReturnCode>" + code + "</ReturnCode></ChequeResponse>";
}

const QByteArray success = answerWith("0");

class DeliveryTest : public TillFixture
{
public:
    DeliveryTest() { till::judgeLoyaltyMessages(*Singleton<DBQueueBroker>::instance()); }

    void givenWaitingMessage()
    {
        Singleton<DBQueueBroker>::instance()->enqueue(u"korvelloyaltyonline"_s,
            {{u"url"_s, service.url().toString()}, {u"headers"_s, QVariantMap{}},
                {u"body"_s, QByteArray("<x/>")}},
            {});
    }
    void givenSuccessfulExchange()
    {
        service.answer(success);
        MockFactory<RestClient>::create()->post(service.url(), "<y/>", {});
    }
    static int waiting() { return Singleton<DBQueueBroker>::instance()->waiting(); }
    till::Outcome whenClosed()
    {
        givenSaleOf({u"1001"_s});
        return till->close();
    }

    /// A cheque is closed, and what waits is not even tried.
    void thenCloseSendsNothing()
    {
        const auto sent = service.requests().size();
        EXPECT_TRUE(whenClosed().notices.isEmpty());
        EXPECT_EQ(service.requests().size(), sent);
        EXPECT_EQ(waiting(), 1);
    }

    ScriptedServer service;
};

TEST_F(DeliveryTest, StartSaysNothingOfASoundQueue)
{
    EXPECT_TRUE(till->start().isEmpty());
}

TEST_F(DeliveryTest, StartTellsOfADamagedQueue)
{
    const QString folder = Singleton<StateFolder>::instance()->queue();
    ASSERT_TRUE(QDir().mkpath(folder));
    files::put(folder + u"/queue.sqlite"_s, "no database");
    EXPECT_EQ(till->start().value(0).id(), u"queueSetAside"_s);
}

TEST_F(DeliveryTest, TillStartsWithoutItsQueue)
{
    ASSERT_TRUE(QDir().mkpath(Singleton<StateFolder>::instance()->queue() + u"/queue.sqlite"_s));
    EXPECT_EQ(till->start().value(0).id(), u"tillQueueFailed"_s);
    till->openSale();
    EXPECT_TRUE(till->document());
}

TEST_F(DeliveryTest, DeliverSendsWhatWaitsAndTells)
{
    givenWaitingMessage();
    service.answer(success);
    const auto outcome = till->deliver();
    EXPECT_EQ(waiting(), 0);
    EXPECT_EQ(
        outcome.notices.value(0).ru(), u"Отправка очереди: доставлено 1, отклонено 0, ждут 0"_s);
}

TEST_F(DeliveryTest, ARefusedMessageIsNotSentAgain)
{
    givenWaitingMessage();
    service.answer(answerWith("80241"));
    till->deliver();
    EXPECT_EQ(waiting(), 0);
    EXPECT_EQ(
        Singleton<DBQueueBroker>::instance()->list().constFirst().state, MessageState::Refused);
}

TEST_F(DeliveryTest, SaysWhatToDoAboutWrongCredentials)
{
    givenWaitingMessage();
    service.answer("", 401);
    EXPECT_TRUE(till->deliver().notices.last().ru().contains(u"korvel-till queue reauthorise"_s));
}

TEST_F(DeliveryTest, SaysThatMessagesWereParked)
{
    givenSetting(u"Queue:parkDays"_s, u"0"_s);
    givenWaitingMessage();
    service.answer("", 500);
    EXPECT_EQ(till->deliver().notices.last().id(), u"tillDeliveryParked"_s);
}

TEST_F(DeliveryTest, SaysNothingMoreOfAPassWithoutTrouble)
{
    givenWaitingMessage();
    service.answer(success);
    EXPECT_EQ(till->deliver().notices.size(), 1);
}

TEST_F(DeliveryTest, AClosedChequeDeliversWhenTheLastExchangeSucceeded)
{
    givenSuccessfulExchange();
    givenWaitingMessage();
    EXPECT_EQ(whenClosed().notices.size(), 1);
    EXPECT_EQ(waiting(), 0);
}

TEST_F(DeliveryTest, AClosedChequeDeliversNothingAfterAFailedExchange)
{
    givenSuccessfulExchange();
    ScriptedServer failing;
    failing.answer("", 503);
    MockFactory<RestClient>::create()->post(failing.url(), "<y/>", {});
    givenWaitingMessage();
    thenCloseSendsNothing();
}

TEST_F(DeliveryTest, AClosedChequeDeliversNothingBeforeAnyExchange)
{
    givenWaitingMessage();
    thenCloseSendsNothing();
}

TEST_F(DeliveryTest, AClosedChequeDeliversNothingWhereTheSettingForbidsIt)
{
    givenSetting(u"Queue:deliverAfterClose"_s, u"false"_s);
    givenSuccessfulExchange();
    givenWaitingMessage();
    thenCloseSendsNothing();
}

TEST_F(DeliveryTest, NothingIsToldWhereNothingWaits)
{
    givenSuccessfulExchange();
    EXPECT_TRUE(whenClosed().notices.isEmpty());
}

TEST_F(DeliveryTest, AChequeWhoseRegistrationFailedDeliversNothing)
{
    givenSuccessfulExchange();
    givenWaitingMessage();
    givenSaleOf({u"1001"_s});
    loyalty->behaviour[u"hasPointsForEarn"_s] = []() -> bool { throw std::runtime_error("no"); };
    till->close();
    EXPECT_EQ(waiting(), 1);
}

TEST_F(DeliveryTest, FinalCodesOfTheSettingsCount)
{
    givenSetting(u"KorvelLoyaltyOnline:errorsList"_s, u"77001, 77002"_s);
    till::judgeLoyaltyMessages(*Singleton<DBQueueBroker>::instance());
    givenWaitingMessage();
    service.answer(answerWith("77002"));
    till->deliver();
    EXPECT_EQ(waiting(), 0);
}

} // namespace

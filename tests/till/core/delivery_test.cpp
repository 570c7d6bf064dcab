// The outgoing queue is delivered on demand and after a closed cheque.

#include "host/net/restclient.h"
#include "host/queue/dbqueuebroker.h"
#include "tests/support/scriptedserver.h"
#include "tests/till/support/tillfixture.h"
#include "till/core/loyaltyverdict.h"

using namespace Qt::StringLiterals;

namespace {

const QByteArray success = "<E><ReturnCode>0</ReturnCode></E>";

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
    void givenExchange(const QByteArray &answer, int status)
    {
        service.answer(answer, status);
        MockFactory<RestClient>::create()->post(service.url(), "<y/>", {});
    }
    static int waiting() { return Singleton<DBQueueBroker>::instance()->waiting(); }
    till::Outcome whenClosed()
    {
        givenSaleOf({u"1001"_s});
        return till->close();
    }

    ScriptedServer service;
};

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
    service.answer("<E><ReturnCode>80241</ReturnCode></E>");
    till->deliver();
    EXPECT_EQ(waiting(), 0);
    EXPECT_EQ(
        Singleton<DBQueueBroker>::instance()->list().constFirst().state, MessageState::Refused);
}

TEST_F(DeliveryTest, AClosedChequeDeliversWhenTheLastExchangeSucceeded)
{
    givenExchange(success, 200);
    givenWaitingMessage();
    EXPECT_EQ(whenClosed().notices.size(), 1);
    EXPECT_EQ(waiting(), 0);
}

TEST_F(DeliveryTest, AClosedChequeDeliversNothingAfterAFailedExchange)
{
    givenExchange(success, 200);
    givenExchange("", 503);
    givenWaitingMessage();
    whenClosed();
    EXPECT_EQ(waiting(), 1);
}

TEST_F(DeliveryTest, AClosedChequeDeliversNothingBeforeAnyExchange)
{
    givenWaitingMessage();
    whenClosed();
    EXPECT_EQ(waiting(), 1);
}

TEST_F(DeliveryTest, AClosedChequeDeliversNothingWhereTheSettingForbidsIt)
{
    givenSetting(u"Queue:deliverAfterClose"_s, u"false"_s);
    givenExchange(success, 200);
    givenWaitingMessage();
    whenClosed();
    EXPECT_EQ(waiting(), 1);
}

TEST_F(DeliveryTest, NothingIsToldWhereNothingWaits)
{
    givenExchange(success, 200);
    EXPECT_TRUE(whenClosed().notices.isEmpty());
}

TEST_F(DeliveryTest, AChequeWhoseRegistrationFailedDeliversNothing)
{
    givenExchange(success, 200);
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
    service.answer("<E><ReturnCode>77002</ReturnCode></E>");
    till->deliver();
    EXPECT_EQ(waiting(), 0);
}

} // namespace

#include "tests/host/net/nameservers.h"
#include "tests/host/net/refusedport.h"
#include "tests/host/net/restclientfixture.h"

using namespace Qt::Literals::StringLiterals;

namespace {

class BreakerTest : public RestClientFixture
{
protected:
    BreakerTest()
    {
        givenSetting(u"RestClient:breakerFailures"_s, u"2"_s);
        givenSetting(u"RestClient:breakerSeconds"_s, u"60"_s);
    }
    void whenPostedTimes(int times, const QUrl &url)
    {
        for (int i = 0; i < times; ++i)
            whenPosted(url);
    }
};

TEST_F(BreakerTest, FailsAtOnceAfterThatManyFailures)
{
    const RefusedPort refused;
    whenPostedTimes(2, refused.url());
    thenFailedWith(RestClient::ConnectionRefused);

    whenPosted(refused.url());
    thenFailedWith(RestClient::BreakerOpen);
    EXPECT_EQ(m_client->errorMessage().id(), u"restClientBreakerOpen"_s);
}

TEST_F(BreakerTest, SendsNothingWhileItIsOpen)
{
    m_server.answerRaw({});
    whenPostedTimes(3, m_server.url());

    thenFailedWith(RestClient::BreakerOpen);
    EXPECT_EQ(m_server.requests().size(), 2);
}

TEST_F(BreakerTest, ASuccessInBetweenStartsTheCountAgain)
{
    m_server.answerRaw({});
    m_server.answer("ok");
    m_server.answerRaw({});
    m_server.answer("ok");
    whenPostedTimes(4, m_server.url());

    thenSucceeded();
}

TEST_F(BreakerTest, KnowsEachServerByItself)
{
    const RefusedPort refused;
    whenPostedTimes(2, refused.url());
    m_server.answer("ok");
    whenPosted();

    thenSucceeded();
}

TEST_F(BreakerTest, IsTheSameForEveryPathOfAServer)
{
    const RefusedPort refused;
    whenPosted(refused.url().resolved(QUrl(u"/a?b=c"_s)));
    whenPosted(refused.url().resolved(QUrl(u"/d"_s)));
    whenPosted(refused.url());

    thenFailedWith(RestClient::BreakerOpen);
}

TEST_F(BreakerTest, StaysClosedWhenSomethingElseIsWrong)
{
    m_server.answer("", 404);
    whenPostedTimes(3, m_server.url());
    thenFailedWith(404);

    whenPostedTimes(3, QUrl(u"ftp://127.0.0.1/"_s));
    thenFailedWith(RestClient::BadAddress);
}

TEST_F(BreakerTest, CountsWhatTheServerItselfCannotDo)
{
    m_server.answer("", 500);
    whenPostedTimes(3, m_server.url());

    thenFailedWith(RestClient::BreakerOpen);
}

TEST_F(BreakerTest, IsOffWithoutASetting)
{
    givenSetting(u"RestClient:breakerFailures"_s, u"0"_s);
    const RefusedPort refused;
    whenPostedTimes(5, refused.url());

    thenFailedWith(RestClient::ConnectionRefused);
}

TEST_F(BreakerTest, AServerThatIsBackIsTriedAgain)
{
    // Nothing is kept of a name behind which nobody answers: each attempt looks it up.
    const CountingNameServer names;
    RefusedPort port;
    const QUrl url = CountingNameServer::named(port.url());
    whenPostedTimes(2, url);
    const int lookupsOfExchanges = names.lookups();
    do
        whenPosted(url);
    while (names.lookups() < lookupsOfExchanges + 2);
    thenFailedWith(RestClient::BreakerOpen);

    // The probe has missed the server once, and looks again.
    port.startAccepting();
    m_limitSeconds = shortLimitSeconds;
    do
        whenPosted(url);
    while (m_client->errorCode() == RestClient::BreakerOpen);
    thenLimitHeld();
}

TEST_F(BreakerTest, AServerThatAcceptsConnectionsAndFailsIsNotTriedBeforeThePeriodHasPassed)
{
    givenSetting(u"RestClient:breakerSeconds"_s, u"2"_s);
    m_server.answerRaw({});
    m_server.answerRaw({});
    m_server.answer("ok");
    whenPosted();
    QElapsedTimer sinceLastFailure;
    sinceLastFailure.start();
    whenPosted();
    do
        whenPosted();
    while (m_client->errorCode() == RestClient::BreakerOpen);

    thenSucceeded();
    EXPECT_GE(sinceLastFailure.elapsed(), 2000);
}

} // namespace

// The relay between a till and its service.

#include "tests/restart/relay.h"
#include "tests/support/scriptedserver.h"

#include <gtest/gtest.h>

#include <future>
#include <memory>

namespace restart {

namespace {

const QByteArray request = "POST / HTTP/1.1\r\nContent-Length: 3\r\n\r\nask";

/// A service that answers each request with "answer", and a till that is one connection at a time.
class RelayTest : public testing::Test
{
public:
    RelayTest() { service.answerRaw("answer"); }

    // What the till was answered.
    QByteArray whenAsked(const QByteArray &bytes = request)
    {
        const Socket till = Socket::connectedTo(relay.port());
        till.send(bytes);
        QByteArray answer;
        do
            ending = till.receive(answer);
        while (ending == Socket::Received::Bytes);
        return answer;
    }

    void givenStrike(int exchange, Moment moment)
    {
        relay.strikeAt(exchange, moment, [this] { struck.set_value(); });
    }

    bool hasStruck()
    {
        return strike.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
    }

    ScriptedServer service;
    Relay relay{static_cast<quint16>(service.url().port())};
    Socket::Received ending = Socket::Received::Bytes;
    std::promise<void> struck;
    std::future<void> strike = struck.get_future();
};

TEST_F(RelayTest, PassesOnWhatIsSaid)
{
    EXPECT_EQ(whenAsked(), "answer");
    EXPECT_EQ(ending, Socket::Received::End);
    ASSERT_EQ(service.requests().size(), 1);
    EXPECT_EQ(service.requests().first().body, "ask");
}

TEST_F(RelayTest, PassesOnAReset)
{
    service.answerReset("ans");
    whenAsked();
    whenAsked();
    EXPECT_EQ(ending, Socket::Received::Broken);
}

TEST_F(RelayTest, ServesAnotherTillAfterOneThatWentInTheMiddle)
{
    {
        Socket::connectedTo(relay.port()).send(request.chopped(1));
    }
    EXPECT_EQ(whenAsked(), "answer");
    EXPECT_EQ(service.requests().size(), 1);
}

TEST_F(RelayTest, EndsAnExchangeWithAServiceThatIsAway)
{
    const Socket nobody = Socket::onFreePort();
    Relay lonely(nobody.port());
    const Socket till = Socket::connectedTo(lonely.port());
    till.send(request);
    QByteArray answer;
    EXPECT_NE(till.receive(answer), Socket::Received::Bytes);
}

TEST_F(RelayTest, AskedTheServiceKnowsNothing)
{
    givenStrike(1, Moment::Asked);
    EXPECT_EQ(whenAsked(), "");
    EXPECT_TRUE(hasStruck());
    EXPECT_TRUE(service.requests().isEmpty());
}

TEST_F(RelayTest, ActedTheTillKnowsNothing)
{
    givenStrike(1, Moment::Acted);
    EXPECT_EQ(whenAsked(), "");
    EXPECT_TRUE(hasStruck());
    EXPECT_EQ(service.requests().size(), 1);
}

TEST_F(RelayTest, AnsweredBothKnow)
{
    givenStrike(1, Moment::Answered);
    EXPECT_EQ(whenAsked(), "answer");
    EXPECT_TRUE(hasStruck());
    EXPECT_EQ(service.requests().size(), 1);
}

TEST_F(RelayTest, StrikesOnceAtTheExchangeThatWasOrdered)
{
    givenStrike(2, Moment::Asked);
    EXPECT_EQ(whenAsked(), "answer");
    EXPECT_FALSE(hasStruck());
    EXPECT_EQ(whenAsked(), "");
    EXPECT_TRUE(hasStruck());
    EXPECT_EQ(whenAsked(), "answer");
}

TEST_F(RelayTest, AStrikeThatIsForgottenDoesNotStrike)
{
    givenStrike(1, Moment::Asked);
    relay.forgetStrike();
    EXPECT_EQ(whenAsked(), "answer");
    EXPECT_FALSE(hasStruck());
}

TEST_F(RelayTest, ShowsEachRequestBeforeTheServiceHasIt)
{
    QByteArray seen;
    qsizetype askedBefore = -1;
    relay.showRequestsTo([&](const QByteArray &bytes) {
        seen = bytes;
        askedBefore = service.requests().size();
    });
    whenAsked();
    EXPECT_EQ(seen, request);
    EXPECT_EQ(askedBefore, 0);
}

TEST(RelayToASilentServiceTest, ATillThatHasGoneKeepsNobodyWaiting)
{
    ScriptedServer service;
    service.answerNever();
    service.answerRaw("answer");
    Relay relay{static_cast<quint16>(service.url().port())};
    {
        const Socket gone = Socket::connectedTo(relay.port());
        gone.send(request);
    }
    const Socket till = Socket::connectedTo(relay.port());
    till.send(request);
    QByteArray answer;
    EXPECT_EQ(till.receive(answer), Socket::Received::Bytes);
    EXPECT_EQ(answer, "answer");
}

} // namespace

} // namespace restart

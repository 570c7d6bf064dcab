// Whoever waits for an exchange is told how long it has taken.

#include "host/net/exchangeprogress.h"
#include "host/net/restclient.h"
#include "tests/support/hostfixture.h"
#include "tests/support/scriptedserver.h"

#include <QList>

#include <gtest/gtest.h>

#include <algorithm>

using namespace std::chrono_literals;

namespace {

class ExchangeProgressTest : public HostFixture, public testing::Test
{
public:
    ExchangeProgressTest()
    {
        setExchangeProgress([this](std::chrono::milliseconds passed) { told.append(passed); });
    }
    ~ExchangeProgressTest() override { setExchangeProgress({}); }

    void whenExchanged()
    {
        client.setTimeout(1);
        client.post(server.url(), "body", {});
    }

    RestClient client;
    ScriptedServer server;
    QList<std::chrono::milliseconds> told;
};

TEST_F(ExchangeProgressTest, IsToldWhenAnExchangeBegins)
{
    server.answer("yes");
    whenExchanged();
    EXPECT_EQ(client.responseBody(), "yes");
    ASSERT_FALSE(told.isEmpty());
    EXPECT_GE(told.constFirst(), 0ms);
    EXPECT_LE(told.constLast(), 1s);
}

TEST_F(ExchangeProgressTest, IsToldAgainWhileNothingComes)
{
    server.answerNever();
    whenExchanged();
    EXPECT_EQ(client.errorCode(), RestClient::TimedOut);
    EXPECT_TRUE(std::is_sorted(told.cbegin(), told.cend()));
    EXPECT_GT(told.constLast(), 500ms);
}

TEST_F(ExchangeProgressTest, NobodyIsToldOnceThatIsOver)
{
    setExchangeProgress({});
    server.answer("yes");
    whenExchanged();
    EXPECT_EQ(client.responseBody(), "yes");
    EXPECT_TRUE(told.isEmpty());
}

} // namespace

// Faults are told to the emulator.

#include "tests/support/hostfixture.h"
#include "tests/support/scriptedserver.h"
#include "till/core/cannotdo.h"
#include "till/core/exchanges.h"
#include "till/script/fault.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class FaultTest : public HostFixture, public testing::Test
{
public:
    void givenApi() { givenSetting(u"Till:serviceApi"_s, emulator.url().toString() + u"api"_s); }
    static QString whyNot(const QString &words)
    {
        try {
            till::sendFault(words);
            return {};
        } catch (const till::CannotDo &error) {
            return error.text();
        }
    }

    ScriptedServer emulator;
};

TEST_F(FaultTest, ItsWordsArePostedAsText)
{
    givenApi();
    emulator.answer("ok");
    till::sendFault(u"status 503 Fiscal"_s);
    const auto request = emulator.requests().value(0);
    EXPECT_TRUE(request.requestLine.startsWith("POST /api/faults ")) << request.requestLine.data();
    EXPECT_EQ(request.headers.value("content-type"), "text/plain; charset=utf-8");
    EXPECT_EQ(request.body, "status 503 Fiscal");
}

TEST_F(FaultTest, AnotherAnswerThan2xxIsAnError)
{
    givenApi();
    emulator.answer("unknown", 400);
    const QString reason = whyNot(u"nonsense"_s);
    EXPECT_TRUE(reason.contains(u"/api/faults did not take the fault \"nonsense\": "));
    EXPECT_TRUE(reason.contains(u"400"));
}

TEST_F(FaultTest, WithoutAnAddressNobodyTakesIt)
{
    EXPECT_TRUE(whyNot(u"stop"_s).startsWith(u"no service takes faults: Till:serviceApi"));
}

TEST_F(FaultTest, ItIsNoExchangeOfTheTill)
{
    bool posted = false;
    const till::Exchanges exchanges([&] { posted = true; });
    givenApi();
    emulator.answer("ok");
    till::sendFault(u"stop"_s);
    EXPECT_FALSE(posted);
    EXPECT_FALSE(exchanges.lastSucceeded());
}

} // namespace

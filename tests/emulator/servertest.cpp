#include "tests/emulator/support/heldservice.h"
#include "tests/emulator/support/httpclient.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <future>

using namespace Qt::Literals::StringLiterals;

namespace emulator {
namespace {

class ServerTest : public testing::Test
{
protected:
    std::future<HttpOutcome> whenPosted(const QStringList &headers = {})
    {
        return std::async(std::launch::async, [url = service.url(), headers] {
            return httpPost(url, "", {headers, {}, {}});
        });
    }

    HeldService service;
};

TEST_F(ServerTest, ServesOthersWhileAnAnswerIsAwaited)
{
    std::future<HttpOutcome> outcome = whenPosted();
    const Respond respond = service.next().respond;
    EXPECT_EQ(httpPost(service.url() + u"at-once"_s, "").body, "at once\n");
    respond(textReply(503, u"late"_s));
    const HttpOutcome late = outcome.get();
    EXPECT_EQ(late.status, 503);
    EXPECT_EQ(late.body, "late\n");
}

TEST_F(ServerTest, ClosesALateAnswerThatIsNone)
{
    std::future<HttpOutcome> outcome = whenPosted();
    HttpReply none;
    none.delivery = Delivery::Nothing;
    service.next().respond(none);
    const HttpOutcome closed = outcome.get();
    EXPECT_NE(closed.curlCode, 0);
    EXPECT_EQ(closed.headers, "");
}

TEST_F(ServerTest, HandsOverTheHeadersAsTheyCame)
{
    std::future<HttpOutcome> outcome
        = whenPosted({u"SOAPAction: \"urn:ask\""_s, u"X-Two: 1"_s, u"X-Two: 2"_s});
    const HeldService::Asked asked = service.next();
    const auto count = [&](const char *name, const QByteArray &value) {
        return std::count(asked.request.headers.begin(), asked.request.headers.end(),
            std::pair<QByteArray, QByteArray>(name, value));
    };
    EXPECT_EQ(count("SOAPAction", "\"urn:ask\""), 1);
    EXPECT_EQ(count("X-Two", "1"), 1);
    EXPECT_EQ(count("X-Two", "2"), 1);
    asked.respond(textReply(200, u"done"_s));
    EXPECT_EQ(outcome.get().status, 200);
}

TEST_F(ServerTest, WritesNoLineForAContentTypeThatThereIsNot)
{
    std::future<HttpOutcome> outcome = whenPosted();
    service.next().respond(HttpReply());
    EXPECT_FALSE(outcome.get().headers.contains("Content-Type"));
}

} // namespace
} // namespace emulator

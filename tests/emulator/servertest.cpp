#include "emulator/http/server.h"

#include "tests/emulator/support/httpclient.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <future>
#include <thread>

namespace emulator {
namespace {

/// A server that lets "/held" wait for `answerHeld` and answers everything else at once.
class ServerTest : public testing::Test
{
protected:
    ~ServerTest() override
    {
        EXPECT_EQ(httpPost(server.url() + QStringLiteral("end"), "").status, 200);
        serving.join();
    }

    void answer(const HttpRequest &request, const Respond &respond)
    {
        asked = request;
        if (request.target == QStringLiteral("/held")) {
            held.set_value(respond);
            return;
        }
        HttpReply reply = textReply(200, request.target);
        reply.endsService = request.target == QStringLiteral("/end");
        respond(reply);
    }

    std::future<HttpOutcome> givenHeldRequest()
    {
        return std::async(std::launch::async,
            [this] { return httpPost(server.url() + QStringLiteral("held"), ""); });
    }

    std::promise<Respond> held;
    HttpRequest asked;
    Server server{{QStringLiteral("127.0.0.1"), 0}, {},
        {[] { return Reception(); },
            [this](
                const HttpRequest &request, const Respond &respond) { answer(request, respond); }}};
    std::thread serving{[this] { server.run(); }};
};

TEST_F(ServerTest, ServesOthersWhileAnAnswerIsAwaited)
{
    std::future<HttpOutcome> outcome = givenHeldRequest();
    const Respond respond = held.get_future().get();
    EXPECT_EQ(httpPost(server.url() + QStringLiteral("other"), "").body, "/other\n");
    std::thread([&] { respond(textReply(503, QStringLiteral("late"))); }).join();
    const HttpOutcome late = outcome.get();
    EXPECT_EQ(late.status, 503);
    EXPECT_EQ(late.body, "late\n");
}

TEST_F(ServerTest, ClosesALateAnswerThatIsNone)
{
    std::future<HttpOutcome> outcome = givenHeldRequest();
    HttpReply none;
    none.delivery = Delivery::Nothing;
    held.get_future().get()(none);
    const HttpOutcome closed = outcome.get();
    EXPECT_NE(closed.curlCode, 0);
    EXPECT_EQ(closed.headers, "");
}

TEST_F(ServerTest, HandsOverTheHeadersAsTheyCame)
{
    const HttpOptions options{{QStringLiteral("SOAPAction: \"urn:ask\""),
                                  QStringLiteral("X-Two: 1"), QStringLiteral("X-Two: 2")},
        {}, {}};
    EXPECT_EQ(httpPost(server.url(), "", options).status, 200);
    const auto has = [&](const char *name, const QByteArray &value) {
        return std::count(asked.headers.begin(), asked.headers.end(),
            std::pair<QByteArray, QByteArray>(name, value));
    };
    EXPECT_EQ(has("SOAPAction", "\"urn:ask\""), 1);
    EXPECT_EQ(has("X-Two", "1") + has("X-Two", "2"), 2);
}

} // namespace
} // namespace emulator

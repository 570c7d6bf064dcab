#include "emulator/recording/upstream.h"

#include "tests/support/scriptedserver.h"

#include <QScopeGuard>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <thread>

using namespace Qt::Literals::StringLiterals;
using testing::HasSubstr;

namespace emulator {
namespace {

constexpr std::chrono::seconds longLimit{30};

class UpstreamTest : public testing::Test
{
protected:
    UpstreamAnswer whenForwarded(const HttpRequest &request, std::chrono::seconds limit = longLimit)
    {
        return Upstream({UpstreamAddress::parse(address), limit, {}}).forward(request);
    }

    UpstreamAnswer whenForwarded() { return whenForwarded(request()); }

    static HttpRequest request()
    {
        HttpRequest request;
        request.method = u"POST"_s;
        request.target = u"/"_s;
        request.body = "<request/>";
        return request;
    }

    void thenFailed(const UpstreamAnswer &answer, const char *failure)
    {
        EXPECT_THAT(answer.failure.toStdString(), HasSubstr(failure));
        EXPECT_EQ(answer.status, 0);
        EXPECT_EQ(answer.body, "");
    }

    ScriptedServer service;
    QString address = service.url().toString();
};

TEST_F(UpstreamTest, PassesOnWhatTheTillSent)
{
    service.answer("<answer/>");
    HttpRequest sent = request();
    sent.target = u"/soap/one?shop=5&x"_s;
    sent.authorization = "Basic QUJD";
    sent.body = QByteArray("<a>\0\xff\r\n</a>", 12);
    sent.headers = {{"content-type", "text/xml; charset=utf-8"}, {"SOAPACTION", "\"urn:ask\""},
        {"Authorization", "Basic QUJD"}, {"Cookie", "c=1"}, {"X-Other", "1"}, {"Host", "till"},
        {"Accept-Encoding", "gzip"}};
    EXPECT_EQ(whenForwarded(sent).failure, QString());
    ASSERT_EQ(service.requests().size(), 1);
    const ScriptedServer::Request got = service.requests().first();
    EXPECT_EQ(got.requestLine, "POST /soap/one?shop=5&x HTTP/1.1");
    EXPECT_EQ(got.body, sent.body);
    EXPECT_EQ(got.headers,
        (QMap<QByteArray, QByteArray>{{"accept", "*/*"}, {"authorization", "Basic QUJD"},
            {"content-length", "12"}, {"content-type", "text/xml; charset=utf-8"},
            {"host", service.url().authority().toUtf8()}, {"soapaction", "\"urn:ask\""}}));
}

TEST_F(UpstreamTest, AddsNothingThatTheTillDidNotSend)
{
    service.answer("<answer/>");
    HttpRequest sent = request();
    sent.headers = {{"SOAPAction", ""}};
    sent.body = QByteArray(2 * 1024 * 1024, 'x');
    EXPECT_EQ(whenForwarded(sent).failure, QString());
    const ScriptedServer::Request got = service.requests().first();
    EXPECT_EQ(
        got.headers.keys(), (QList<QByteArray>{"accept", "content-length", "host", "soapaction"}));
    EXPECT_EQ(got.body, sent.body);
}

TEST_F(UpstreamTest, AuthorisesAsItsUrlSaysWhereTheTillDoesNot)
{
    service.answer("<answer/>");
    address.replace(u"http://"_s, u"http://till:hush@"_s);
    whenForwarded();
    HttpRequest sent = request();
    sent.authorization = "Basic QUJD";
    whenForwarded(sent);
    EXPECT_EQ(service.requests().at(0).headers.value("authorization"),
        "Basic " + QByteArray("till:hush").toBase64());
    EXPECT_EQ(service.requests().at(1).headers.value("authorization"), "Basic QUJD");
}

TEST_F(UpstreamTest, KeepsThePathAsItWasSent)
{
    service.answer("<answer/>");
    HttpRequest sent = request();
    sent.target = u"/a/../b"_s;
    whenForwarded(sent);
    EXPECT_EQ(service.requests().first().requestLine, "POST /a/../b HTTP/1.1");
}

TEST_F(UpstreamTest, GivesTheAnswerBackAsItCame)
{
    const QByteArray body("\xef\xbb\xbf<a>\0\xff\r\n</a>", 15);
    service.answerRaw("HTTP/1.1 503 Later\r\nContent-Type: application/soap+xml;charset=x\r\n"
                      "Content-Length: 15\r\n\r\n"
        + body);
    const UpstreamAnswer answer = whenForwarded();
    EXPECT_EQ(answer.failure, QString());
    EXPECT_EQ(answer.status, 503);
    EXPECT_EQ(answer.contentType, "application/soap+xml;charset=x");
    EXPECT_EQ(answer.body, body);
}

TEST_F(UpstreamTest, TakesAnAnswerBehindAnInterimOne)
{
    service.answerRaw("HTTP/1.1 100 Continue\r\n\r\nHTTP/1.1 200 OK\r\n\r\nbody");
    const UpstreamAnswer answer = whenForwarded();
    EXPECT_EQ(answer.failure, QString());
    EXPECT_EQ(answer.status, 200);
    EXPECT_EQ(answer.contentType, "");
    EXPECT_EQ(answer.body, "body");
}

TEST_F(UpstreamTest, FollowsNoRedirection)
{
    service.answerRaw("HTTP/1.1 307 Elsewhere\r\nLocation: /elsewhere\r\n"
                      "Content-Length: 0\r\n\r\n");
    EXPECT_EQ(whenForwarded().status, 307);
    EXPECT_EQ(service.requests().size(), 1);
}

TEST_F(UpstreamTest, NeverSendsTwice)
{
    service.answerRaw("");
    thenFailed(whenForwarded(), "Empty reply");
    EXPECT_EQ(service.requests().size(), 1);
}

TEST_F(UpstreamTest, AnAnswerThatIsCutIsNone)
{
    service.answerRaw("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nbody");
    thenFailed(whenForwarded(), "transfer closed");
    EXPECT_EQ(service.requests().size(), 1);
}

TEST_F(UpstreamTest, AHeadThatIsCutIsNoAnswer)
{
    service.answerRaw("HTTP/1.1 200 OK\r\nContent-Length: 0\r\nContent-Ty");
    thenFailed(whenForwarded(), "inside the answer's head");
    EXPECT_EQ(service.requests().size(), 1);
}

TEST_F(UpstreamTest, AResetIsAFailure)
{
    service.answerReset("HTTP/1.1 200 OK\r\n");
    EXPECT_NE(whenForwarded().failure, QString());
    EXPECT_EQ(service.requests().size(), 1);
}

TEST_F(UpstreamTest, AnAnswerThatIsTooLargeIsNone)
{
    service.answer(QByteArray(64 * 1024 * 1024 + 1, 'x'));
    thenFailed(whenForwarded(), "larger than 64 MiB");
}

TEST_F(UpstreamTest, ARefusedConnectionIsAFailure)
{
    {
        const ScriptedServer gone;
        address = gone.url().toString();
    }
    thenFailed(whenForwarded(), "connect");
}

TEST_F(UpstreamTest, WaitsNoLongerThanItsLimit)
{
    service.answerNever();
    thenFailed(whenForwarded(request(), std::chrono::seconds(1)), "timed out");
}

TEST_F(UpstreamTest, IsCutOffWhenItIsCancelled)
{
    service.answerNever();
    Upstream upstream({UpstreamAddress::parse(address), longLimit, {}});
    std::thread canceller([&] {
        while (service.requests().isEmpty())
            std::this_thread::yield();
        upstream.cancel();
    });
    thenFailed(upstream.forward(request()), "the recorder was stopped");
    canceller.join();
    thenFailed(upstream.forward(request()), "the recorder was stopped");
    EXPECT_EQ(service.requests().size(), 1);
}

TEST_F(UpstreamTest, TakesNoProxyFromTheEnvironment)
{
    service.answer("<answer/>");
    const ScriptedServer proxy;
    for (const char *name : {"http_proxy", "HTTP_PROXY", "ALL_PROXY", "all_proxy"})
        qputenv(name, proxy.url().toEncoded());
    const auto restored = qScopeGuard([] {
        for (const char *name : {"http_proxy", "HTTP_PROXY", "ALL_PROXY", "all_proxy"})
            qunsetenv(name);
    });
    EXPECT_EQ(whenForwarded().body, "<answer/>");
    EXPECT_EQ(proxy.requests().size(), 0);
}

} // namespace
} // namespace emulator

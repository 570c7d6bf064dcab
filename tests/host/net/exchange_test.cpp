#include "tests/host/net/nameservers.h"
#include "tests/host/net/refusedport.h"
#include "tests/host/net/restclientfixture.h"

using namespace Qt::Literals::StringLiterals;

namespace {

const QByteArray okHead = "HTTP/1.1 200 OK\r\n";

class ExchangeTest : public RestClientFixture
{ };

TEST_F(ExchangeTest, PostsTheBodyAndGivesTheAnswer)
{
    m_server.answer("<answer/>");
    whenPosted(m_server.url().resolved(QUrl(u"/loyalty?shop=1"_s)), "<a>Хлеб</a>");

    thenSucceeded();
    EXPECT_EQ(m_client->responseBody(), "<answer/>");
    EXPECT_EQ(m_server.requests().value(0).requestLine, "POST /loyalty?shop=1 HTTP/1.1");
    EXPECT_EQ(m_server.requests().value(0).body, "<a>Хлеб</a>");
}

TEST_F(ExchangeTest, SendsALargeBodyWithoutAskingFirst)
{
    const QByteArray body(3 * 1024 * 1024, 'x');
    m_server.answer("ok");
    whenPosted(m_server.url(), body);

    thenSucceeded();
    EXPECT_EQ(m_server.requests().value(0).body, body);
    EXPECT_FALSE(m_server.requests().value(0).headers.contains("expect"));
}

TEST_F(ExchangeTest, SendsAnEmptyBody)
{
    m_server.answer("ok");
    whenPosted(m_server.url(), {});

    thenSucceeded();
    EXPECT_EQ(m_server.requests().value(0).headers.value("content-length"), "0");
}

TEST_F(ExchangeTest, AnswersThatAreWhole)
{
    const QList<std::pair<QByteArray, QByteArray>> rows{
        {okHead + "Content-Length: 2\r\n\r\nhi", "hi"},
        {okHead + "\r\nto the end", "to the end"},
        {okHead + "Transfer-Encoding: chunked\r\n\r\n2\r\nhi\r\n0\r\nTrailer: x\r\n\r\n", "hi"},
        {"HTTP/1.1 200 OK\nContent-Length: 2\n\nhi", "hi"},
        {"HTTP/1.1 100 Continue\r\n\r\n" + okHead + "\r\nhi", "hi"},
        {"HTTP/1.0 201 Created\r\n\r\nhi", "hi"},
        {"HTTP/1.1 204 No Content\r\n\r\n", ""},
    };
    for (const auto &[answer, body] : rows) {
        SCOPED_TRACE(answer.toStdString());
        ScriptedServer server;
        server.answerRaw(answer);
        whenPosted(server.url());
        thenSucceeded();
        EXPECT_EQ(m_client->responseBody(), body);
    }
}

TEST_F(ExchangeTest, AnswersThatWereCut)
{
    const QList<QByteArray> rows{
        "",
        "HTTP/1.",
        "HTTP/1.1 200 OK",
        okHead,
        okHead + "Content-Le",
        okHead + "Content-Type: text/xml\r\n",
        okHead + "Content-Length: 5\r\n",
        okHead + "Content-Length: 5\r\n\r\nhi",
        okHead + "Transfer-Encoding: chunked\r\n\r\n5\r\nhi",
        okHead + "Transfer-Encoding: chunked\r\n\r\n2\r\nhi\r\n",
        "HTTP/1.1 100 Continue\r\n\r\n",
        "HTTP/1.1 100 Continue\r\n\r\n" + okHead + "X: y",
        "HTTP/1.1 101 Switching Protocols\r\nUpgrade: x\r\n\r\n",
        "HTTP/1.1 101 Switching Protocols\r\nUpgrade: x\r\n\r\nhi",
    };
    for (const QByteArray &answer : rows) {
        SCOPED_TRACE(answer.toStdString());
        ScriptedServer server;
        server.answerRaw(answer);
        whenPosted(server.url());
        thenFailedWith(RestClient::AnswerCut);
    }
}

TEST_F(ExchangeTest, AnswersThatWereReset)
{
    const QList<QByteArray> rows{QByteArray(), okHead, okHead + "Content-Length: 5\r\n\r\nhi"};
    for (const QByteArray &answer : rows) {
        SCOPED_TRACE(answer.toStdString());
        ScriptedServer server;
        server.answerReset(answer);
        whenPosted(server.url());
        thenFailedWith(RestClient::AnswerCut);
    }
}

TEST_F(ExchangeTest, ConnectionsThatAreResetBeforeTheBodyIsRead)
{
    const QByteArray moreThanBuffersHold(32 * 1024 * 1024, 'x');
    m_server.resetAfterHeads();
    whenPosted(m_server.url(), moreThanBuffersHold);

    thenFailedWith(RestClient::AnswerCut);
}

TEST_F(ExchangeTest, StatusesBeyondSuccessAreErrors)
{
    for (const int status : {300, 302, 400, 401, 404, 500, 503}) {
        SCOPED_TRACE(status);
        ScriptedServer server;
        server.answer("<fault/>", status);
        whenPosted(server.url());
        thenFailedWith(status);
        EXPECT_EQ(m_client->failedBody(), "<fault/>");
    }
}

TEST_F(ExchangeTest, ASuccessIsNoFailedAnswerAndNeitherIsNone)
{
    m_server.answer("<answer/>");
    m_server.answerRaw(okHead + "Content-Length: 5\r\n\r\nhi");
    for (int exchange = 0; exchange < 2; ++exchange) {
        whenPosted();
        EXPECT_TRUE(m_client->failedBody().isEmpty()) << exchange;
    }
}

TEST_F(ExchangeTest, SendsTheRequestOnceToAServerThatClosesWithoutAnAnswer)
{
    m_server.answerRaw({});
    whenPosted();

    thenFailedWith(RestClient::AnswerCut);
    EXPECT_EQ(m_server.requests().size(), 1);
}

TEST_F(ExchangeTest, DoesNotFollowRedirects)
{
    m_server.answerRaw("HTTP/1.1 307 Moved\r\nLocation: /again\r\nContent-Length: 0\r\n\r\n");
    whenPosted();

    thenFailedWith(307);
    EXPECT_EQ(m_server.requests().size(), 1);
}

TEST_F(ExchangeTest, TakesNoAnswerThatIsNotHttp)
{
    m_server.answerRaw("<answer/>\r\n\r\n");
    whenPosted();

    thenFailedWith(RestClient::ExchangeFailed);
}

TEST_F(ExchangeTest, TakesNoBodyBeyondTheBound)
{
    givenSetting(u"RestClient:maxAnswerBytes"_s, u"10"_s);
    m_server.answerRaw(okHead + "\r\n0123456789");
    m_server.answerRaw(
        okHead + "Transfer-Encoding: chunked\r\n\r\n6\r\n012345\r\n5\r\n01234\r\n0\r\n\r\n");

    whenPosted();
    thenSucceeded();
    whenPosted();
    thenFailedWith(RestClient::AnswerTooLarge);
    EXPECT_EQ(m_client->failedBody(), "012345");
}

TEST_F(ExchangeTest, BoundsTheBodyWithoutASettingToo)
{
    constexpr qsizetype bound = 8 * 1024 * 1024;
    for (const auto *const setting : {"", "0", "-1"}) {
        SCOPED_TRACE(setting);
        if (*setting)
            givenSetting(u"RestClient:maxAnswerBytes"_s, QLatin1String(setting));
        ScriptedServer server;
        server.answerRaw(okHead + "\r\n" + QByteArray(bound, 'x'));
        server.answerRaw(okHead + "\r\n" + QByteArray(bound + 1, 'x'));
        whenPosted(server.url());
        thenSucceeded();
        whenPosted(server.url());
        thenFailedWith(RestClient::AnswerTooLarge);
    }
}

TEST_F(ExchangeTest, TakesNoEndlessHead)
{
    const QByteArray interim = "HTTP/1.1 100 Continue\r\n\r\n";
    const QByteArray manyLines = QByteArray("X-Line: 0123456789012345678901234\r\n").repeated(3000);
    const QList<QByteArray> rows{okHead + manyLines + "\r\nhi",
        okHead + "X-Line: " + QByteArray(200000, 'x') + "\r\n\r\nhi",
        interim.repeated(3000) + okHead + "\r\nhi"};
    for (const QByteArray &answer : rows) {
        SCOPED_TRACE(answer.left(60).toStdString());
        ScriptedServer server;
        server.answerRaw(answer);
        whenPosted(server.url());
        thenFailedWith(RestClient::AnswerTooLarge);
    }
}

TEST_F(ExchangeTest, EndsAtItsLimitWhenNoAnswerComes)
{
    m_limitSeconds = shortLimitSeconds;
    m_server.answerNever();
    whenPosted();

    thenLimitHeld();
}

TEST_F(ExchangeTest, EndsAtItsLimitWhenTheBodyDrips)
{
    m_limitSeconds = shortLimitSeconds;
    m_server.answerDripping(okHead + "Content-Length: 1000000\r\n\r\n");
    whenPosted();

    thenLimitHeld();
    EXPECT_TRUE(m_client->responseBody().isEmpty());
}

TEST_F(ExchangeTest, EndsAtItsLimitWhenTheHeadDrips)
{
    m_limitSeconds = shortLimitSeconds;
    m_server.answerDripping(okHead + "X-Line: ");
    whenPosted();

    thenLimitHeld();
}

TEST_F(ExchangeTest, EndsAtItsLimitWhenTheNameServerIsSilent)
{
    const SilentNameServer nameServer;
    m_limitSeconds = shortLimitSeconds;
    whenPosted(SilentNameServer::url());

    thenLimitHeld();
}

TEST_F(ExchangeTest, TellsFailuresBeforeTheRequestApart)
{
    const RefusedPort refused;
    const QList<std::pair<QUrl, int>> rows{
        {refused.url(), RestClient::ConnectionRefused},
        {QUrl(u"http://no-such-host.invalid/"_s), RestClient::NameNotResolved},
        {QUrl(), RestClient::BadAddress},
        {QUrl(u"ftp://127.0.0.1/"_s), RestClient::BadAddress},
        {QUrl(u"file:///etc/passwd"_s), RestClient::BadAddress},
        {QUrl(u"http:///path"_s), RestClient::BadAddress},
        {QUrl(u"loyalty"_s), RestClient::BadAddress},
    };
    for (const auto &[url, error] : rows) {
        SCOPED_TRACE(url.toString().toStdString());
        whenPosted(url);
        thenFailedWith(error);
    }
}

TEST_F(ExchangeTest, ForgetsTheExchangeBefore)
{
    m_server.answer("<answer/>");
    m_server.answer("", 500);
    m_server.answer("<answer/>");

    whenPosted();
    m_client->post(m_server.url(), "x", {});
    thenFailedWith(500);
    m_client->post(m_server.url(), "x", {});
    thenSucceeded();
}

} // namespace

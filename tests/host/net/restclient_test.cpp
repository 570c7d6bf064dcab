#include "tests/host/net/refusedport.h"
#include "tests/host/net/restclientfixture.h"

#include <optional>

using namespace Qt::Literals::StringLiterals;

namespace {

/// A variable of the environment, put back afterwards.
class EnvironmentVariable
{
public:
    EnvironmentVariable(const char *name, const QByteArray &value)
        : m_name(name)
        , m_former(qgetenv(name))
    {
        qputenv(name, value);
    }
    ~EnvironmentVariable()
    {
        if (m_former.isNull())
            qunsetenv(m_name);
        else
            qputenv(m_name, m_former);
    }
    Q_DISABLE_COPY_MOVE(EnvironmentVariable)

private:
    const char *m_name;
    QByteArray m_former;
};

class RestClientTest : public RestClientFixture
{
protected:
    [[nodiscard]] QString server() const { return m_server.url().authority(); }
    void thenMessageIs(const QString &id, const QString &text) const
    {
        EXPECT_EQ(m_client->errorMessage().id(), id);
        EXPECT_EQ(m_client->errorMessage().ru(), text);
    }
    [[nodiscard]] QString log() const { return m_log.lines().join(u'\n'); }
};

TEST_F(RestClientTest, TellsTheCashierWhichServerAnsweredWithAnError)
{
    m_server.answer("", 503);
    whenPosted();

    thenMessageIs(u"restClientHttpStatus"_s, u"Сервер "_s + server() + u" ответил ошибкой 503");
}

TEST_F(RestClientTest, TellsTheCashierHowLongItWaited)
{
    m_limitSeconds = shortLimitSeconds;
    m_server.answerNever();
    whenPosted();

    thenMessageIs(u"restClientTimedOut"_s, u"Сервер "_s + server() + u" не ответил за 1 с");
}

TEST_F(RestClientTest, TellsTheCashierWhatElseWentWrong)
{
    const RefusedPort refused;
    givenSetting(u"RestClient:maxAnswerBytes"_s, u"1"_s);
    const QList<std::tuple<QByteArray, QString, QString>> rows{
        {"HTTP/1.1 200 OK\r\n", u"restClientAnswerCut"_s,
            u"Ответ сервера %1 получен не полностью"_s},
        {"HTTP/1.1 200 OK\r\n\r\nhi", u"restClientAnswerTooLarge"_s,
            u"Ответ сервера %1 слишком большой"_s},
        {"not http\r\n", u"restClientExchangeFailed"_s, u"Ошибка обмена с сервером %1"_s},
    };
    for (const auto &[answer, id, text] : rows) {
        SCOPED_TRACE(id.toStdString());
        ScriptedServer server;
        server.answerRaw(answer);
        whenPosted(server.url());
        thenMessageIs(id, text.arg(server.url().authority()));
    }
}

TEST_F(RestClientTest, TellsTheCashierThatTheServerCannotBeReached)
{
    const RefusedPort refused;
    whenPosted(refused.url());
    thenMessageIs(u"restClientConnectionRefused"_s,
        u"Нет соединения с сервером "_s + refused.url().authority());

    whenPosted(QUrl(u"http://no-such-host.invalid/"_s));
    thenMessageIs(u"restClientNameNotResolved"_s, u"Сервер no-such-host.invalid не найден"_s);

    whenPosted(QUrl(u"no address"_s));
    thenMessageIs(u"restClientBadAddress"_s, u"Неверный адрес сервера в настройках"_s);
}

TEST_F(RestClientTest, LogsASuccessfulExchange)
{
    m_server.answer("<answer/>");
    whenPosted();

    ASSERT_EQ(m_log.lines().size(), 1);
    EXPECT_TRUE(log().startsWith(u"INFO POST "_s + m_server.url().toString() + u", 4 bytes, "));
    EXPECT_TRUE(log().endsWith(u" ms: status 200, 9 bytes"_s));
}

TEST_F(RestClientTest, LogsWhyAnExchangeFailed)
{
    m_server.answerRaw("HTTP/1.1 200 OK\r\nX");
    whenPosted();

    ASSERT_EQ(m_log.lines().size(), 1);
    EXPECT_TRUE(log().startsWith(u"WARN POST "_s + m_server.url().toString()));
    EXPECT_TRUE(
        log().endsWith(u" ms: the connection was closed inside the answer's head (error 6)"_s));
}

TEST_F(RestClientTest, LogsNoSecrets)
{
    QUrl url = m_server.url();
    url.setUserInfo(u"shop:geheim"_s);
    m_server.answer("", 401);
    whenPosted(url, "<a/>", {{u"Authorization"_s, u"Basic c2VjcmV0"_s}});

    EXPECT_FALSE(log().contains(u"c2VjcmV0"_s));
    EXPECT_FALSE(log().contains(u"geheim"_s));
    EXPECT_FALSE(m_client->errorMessage().ru().contains(u"geheim"_s));
}

TEST_F(RestClientTest, WorksWithoutALogger)
{
    m_server.answer("ok");
    const auto client = MockFactory<RestClient>::create();
    client->post(m_server.url(), "<a/>", {});

    EXPECT_EQ(client->errorCode(), RestClient::None);
}

TEST_F(RestClientTest, TakesNoProxyFromTheEnvironment)
{
    const RefusedPort refused;
    const EnvironmentVariable proxy("http_proxy", refused.url().toEncoded());
    const EnvironmentVariable anyProxy("all_proxy", refused.url().toEncoded());
    m_server.answer("ok");
    whenPosted();

    thenSucceeded();
}

TEST_F(RestClientTest, GoesThroughTheProxyOfItsSettings)
{
    const EnvironmentVariable noProxy("no_proxy", "*");
    givenSetting(u"RestClient:proxy"_s, m_server.url().toString());
    m_server.answer("ok");
    whenPosted(QUrl(u"http://service.invalid/loyalty"_s));

    thenSucceeded();
    EXPECT_EQ(
        m_server.requests().value(0).requestLine, "POST http://service.invalid/loyalty HTTP/1.1");
}

TEST_F(RestClientTest, TellsAProxyThatIsNotFoundLikeAServer)
{
    givenSetting(u"RestClient:proxy"_s, u"http://no-such-proxy.invalid:3128"_s);
    whenPosted();

    thenFailedWith(RestClient::NameNotResolved);
}

TEST_F(RestClientTest, GivesTheStatusOfAProxyThatRefuses)
{
    givenSetting(u"RestClient:proxy"_s, m_server.url().toString());
    m_server.answer("", 403);
    whenPosted(QUrl(u"https://service.invalid/"_s));

    thenFailedWith(403);
    EXPECT_EQ(m_server.requests().value(0).requestLine, "CONNECT service.invalid:443 HTTP/1.1");
}

TEST_F(RestClientTest, TellsTheServersClockWhateverTheStatus)
{
    struct Row
    {
        QByteArray head;
        QString date;
    };
    const QList<Row> rows{
        {"HTTP/1.1 200 OK\r\nDate: Tue, 05 Mar 2024 14:04:09 GMT\r\n", u"2024-03-05T14:04:09Z"_s},
        {"HTTP/1.1 500 Error\r\ndate:Tue, 05 Mar 2024 14:04:09 GMT\r\n", u"2024-03-05T14:04:09Z"_s},
        {"HTTP/1.1 200 OK\r\nDate: yesterday\r\n", u""_s},
        {"HTTP/1.1 200 OK\r\nX-Date: Tue, 05 Mar 2024 14:04:09 GMT\r\n", u""_s},
        {"HTTP/1.1 100 Continue\r\nDate: Tue, 05 Mar 2024 14:04:09 GMT\r\n\r\nHTTP/1.1 200 OK\r\n",
            u""_s},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.head.constData());
        ScriptedServer server;
        server.answerRaw(row.head + "Content-Length: 0\r\n\r\n");
        whenPosted(server.url());
        EXPECT_EQ(m_client->answerDate().toString(Qt::ISODate), row.date);
    }
}

TEST_F(RestClientTest, CanBeReplaced)
{
    struct Double : RestClient
    {
        [[nodiscard]] int errorCode() const override { return ExchangeFailed; }
    };
    MockFactory<RestClient>::setCreator([] { return QSharedPointer<Double>::create(); });

    EXPECT_EQ(MockFactory<RestClient>::create()->errorCode(), RestClient::ExchangeFailed);
}

} // namespace

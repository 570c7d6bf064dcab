#include "tests/host/net/refusedport.h"
#include "tests/host/net/tlsserver.h"
#include "tests/support/scriptedserver.h"
#include "tests/till/check/rulesfixture.h"
#include "till/check/service.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace till::check;

namespace {

class ServiceTest : public RulesFixture
{
public:
    void givenService(const QUrl &url, const QByteArray &settings = {})
    {
        givenConfiguration("[KorvelLoyaltyOnline]\nuser=till\npassword=planted\nurl="
            + url.toEncoded() + '\n' + settings);
    }
    QStringList whenAsked(const QString &card = {})
    {
        QStringList ids;
        findings = judgeService(effective(), card);
        for (const Finding &finding : std::as_const(findings))
            ids.append(nameOf(finding.severity) + u' ' + finding.what.id());
        return ids;
    }

    Findings findings;
};

TEST_F(ServiceTest, IsAskedForTheBalanceOfACard)
{
    ScriptedServer server;
    QFile answer(QStringLiteral(PROTOCOL_FOLDER "/samples/balance-answer.xml"));
    ASSERT_TRUE(answer.open(QIODevice::ReadOnly));
    server.answer(answer.readAll());
    givenService(server.url());

    EXPECT_EQ(whenAsked(u"2900000000017"_s),
        (QStringList{u"ok checkConnected"_s, u"ok checkBalance"_s, u"note checkNoDate"_s,
            u"ok checkTook"_s}));
    ASSERT_EQ(server.requests().size(), 1);
    const auto request = server.requests().value(0);
    EXPECT_EQ(request.headers.value("authorization"), "Basic dGlsbDpwbGFudGVk");
    EXPECT_TRUE(request.body.contains("<CardNumber>2900000000017</CardNumber>"));
}

TEST_F(ServiceTest, IsAskedNothingWithoutACard)
{
    ScriptedServer server;
    server.answerRaw("HTTP/1.1 401 No\r\nDate: Tue, 05 Mar 2024 14:04:09 GMT\r\n"
                     "Content-Length: 0\r\n\r\n");
    givenService(server.url());

    EXPECT_EQ(whenAsked(),
        (QStringList{u"ok checkConnected"_s, u"error checkUnauthorised"_s,
            u"warning checkClockAhead"_s, u"ok checkTook"_s}));
    ASSERT_EQ(server.requests().size(), 1);
    EXPECT_FALSE(server.requests().value(0).body.contains("Request"));
}

TEST_F(ServiceTest, ThatHangsUpIsToldWithoutItsClock)
{
    ScriptedServer server;
    server.answerRaw("");
    givenService(server.url());
    EXPECT_EQ(whenAsked(), (QStringList{u"ok checkConnected"_s, u"error checkExchangeFailed"_s}));
}

TEST_F(ServiceTest, ThatCannotBeReachedIsTold)
{
    const RefusedPort port;
    givenService(port.url());
    EXPECT_EQ(whenAsked(), QStringList{u"error checkNoConnection"_s});
    EXPECT_TRUE(
        findings[0].what.ui().startsWith(u"no connection to "_s + port.url().authority() + u": "))
        << qPrintable(findings[0].what.ui());
    EXPECT_TRUE(findings[0].remedy.ui().contains(u"port"_s));
}

TEST_F(ServiceTest, KeepsWhatStandsInItsAddressSecret)
{
    QUrl url = RefusedPort().url();
    url.setUserInfo(u"u:planted"_s);
    givenService(url);
    EXPECT_EQ(whenAsked(), QStringList{u"error checkNoConnection"_s});
    EXPECT_FALSE(findings[0].what.ui().contains(u"planted"_s));
}

TEST_F(ServiceTest, ThatNobodyVouchesForIsTold)
{
    const TlsServer server;
    givenService(server.url());
    EXPECT_EQ(whenAsked(), QStringList{u"error checkNoConnection"_s});
    EXPECT_TRUE(findings[0].remedy.ui().contains(u"RestClient:caFile"_s));
}

TEST_F(ServiceTest, WhoseCertificateEndsSoonIsTold)
{
    const TlsServer ending;
    givenService(ending.url(), "[RestClient]\ncaFile=" + ending.certificateFile().toUtf8());
    EXPECT_EQ(whenAsked().mid(0, 2),
        (QStringList{u"ok checkConnectedTls"_s, u"warning checkCertificateEnds"_s}));

    const TlsServer lasting(TlsServer::Manner::Answers, u"127.0.0.1"_s, 24h * 365);
    givenService(lasting.url(), "[RestClient]\ncaFile=" + lasting.certificateFile().toUtf8());
    EXPECT_EQ(whenAsked(),
        (QStringList{u"ok checkConnectedTls"_s, u"error checkNotSoap"_s, u"note checkNoDate"_s,
            u"ok checkTook"_s}));
}

} // namespace

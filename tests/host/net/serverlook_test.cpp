#include "host/net/restclient.h"
#include "host/net/serverlook.h"
#include "tests/host/net/refusedport.h"
#include "tests/host/net/tlsserver.h"
#include "tests/support/hostfixture.h"
#include "tests/support/scriptedserver.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace {

class ServerLookTest : public testing::Test, protected HostFixture
{
protected:
    static ServerLook look(const QUrl &url) { return lookAtServer(url, 30s); }
    void givenTrustIn(const TlsServer &server)
    {
        givenSetting(u"RestClient:caFile"_s, server.certificateFile());
    }
};

TEST_F(ServerLookTest, FindsAServerAndSendsNothing)
{
    const ScriptedServer server;
    const ServerLook seen = look(server.url());

    EXPECT_EQ(seen.error, RestClient::None);
    EXPECT_EQ(seen.address, u"127.0.0.1"_s);
    EXPECT_TRUE(seen.certificates.isEmpty());
    EXPECT_EQ(seen.tls, 0ms);
    EXPECT_TRUE(server.requests().isEmpty());
}

TEST_F(ServerLookTest, TellsThatNobodyListens)
{
    const ServerLook seen = look(RefusedPort().url());

    EXPECT_EQ(seen.error, RestClient::ConnectionRefused);
    EXPECT_FALSE(seen.detail.isEmpty());
}

TEST_F(ServerLookTest, TellsWhoTheServerIsAndUntilWhen)
{
    const TlsServer server;
    givenTrustIn(server);
    const ServerLook seen = look(server.url());

    EXPECT_EQ(seen.error, RestClient::None) << qPrintable(seen.detail);
    ASSERT_EQ(seen.certificates.size(), 1);
    EXPECT_EQ(seen.certificates.first().subject, u"test"_s);
    EXPECT_GT(seen.certificates.first().ends, QDateTime::currentDateTimeUtc());
    EXPECT_GE(seen.tls, seen.connection);
    EXPECT_GE(seen.connection, seen.name);
}

TEST_F(ServerLookTest, GoesOnWithNoSession)
{
    const TlsServer server;
    givenTrustIn(server);
    RestClient().post(server.url(), "<a/>", {});
    EXPECT_EQ(look(server.url()).certificates.size(), 1);
    // The server takes one after the other: when this was answered, the look is over.
    RestClient().post(server.url(), "<a/>", {});

    EXPECT_FALSE(server.visits().value(1).resumed);
    EXPECT_TRUE(server.visits().value(2).resumed);
}

TEST_F(ServerLookTest, TellsThatNobodyVouchesForTheServer)
{
    const TlsServer server;
    const ServerLook seen = look(server.url());

    EXPECT_EQ(seen.error, RestClient::TlsFailed);
    EXPECT_TRUE(seen.certificates.isEmpty());
}

TEST_F(ServerLookTest, TellsThatTheServersCertificateHasRunOut)
{
    const TlsServer server(TlsServer::Manner::Answers, u"127.0.0.1"_s, -1min);
    givenTrustIn(server);
    const ServerLook seen = look(server.url());

    EXPECT_EQ(seen.error, RestClient::TlsFailed);
    EXPECT_TRUE(seen.detail.contains(u"expired"_s)) << qPrintable(seen.detail);
}

} // namespace

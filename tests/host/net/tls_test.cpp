#include "tests/host/net/restclientfixture.h"
#include "tests/host/net/tlsserver.h"

using namespace Qt::Literals::StringLiterals;

namespace {

class TlsTest : public RestClientFixture
{
protected:
    void givenTrustIn(const TlsServer &server)
    {
        givenSetting(u"RestClient:caFile"_s, server.certificateFile());
    }
    void givenCertificateOf(const TlsServer &server)
    {
        givenSetting(u"RestClient:clientCert"_s, server.certificateFile());
        givenSetting(u"RestClient:clientKey"_s, server.keyFile());
    }
};

TEST_F(TlsTest, RefusesACertificateThatNobodyVouchesFor)
{
    const TlsServer server;
    whenPosted(server.url());

    thenFailedWith(RestClient::TlsFailed);
    EXPECT_EQ(m_client->errorMessage().ru(),
        QString(u"Не удалось установить защищённое соединение с сервером "_s
            + server.url().authority()));
}

TEST_F(TlsTest, AcceptsTheCertificateOfTheSettings)
{
    const TlsServer server;
    givenTrustIn(server);
    whenPosted(server.url());

    thenSucceeded();
    EXPECT_EQ(m_client->responseBody(), "ok");
}

TEST_F(TlsTest, AcceptsATrustedCertificateWithoutTheOneThatVouchesForIt)
{
    const TlsServer server(TlsServer::Manner::VouchedForByAnother);
    givenTrustIn(server);
    whenPosted(server.url());

    thenSucceeded();
}

TEST_F(TlsTest, RefusesACertificateThatIsMadeOutToAnotherServer)
{
    const TlsServer server(TlsServer::Manner::Answers, u"127.0.0.2"_s);
    givenTrustIn(server);
    whenPosted(server.url());

    thenFailedWith(RestClient::TlsFailed);
}

TEST_F(TlsTest, RefusesWhenTheTrustedCertificatesCannotBeRead)
{
    const TlsServer server;
    givenSetting(u"RestClient:caFile"_s, u"/no/such/file.pem"_s);
    whenPosted(server.url());

    thenFailedWith(RestClient::TlsFailed);
    EXPECT_TRUE(m_log.lines().join(u'\n').contains(u"/no/such/file.pem"));
}

TEST_F(TlsTest, ShowsItsOwnCertificateToAServerThatAsks)
{
    const TlsServer server(TlsServer::Manner::AsksForCertificate);
    givenTrustIn(server);
    whenPosted(server.url());
    thenFailedWith(RestClient::TlsFailed);

    givenCertificateOf(server);
    whenPosted(server.url());
    thenSucceeded();
}

TEST_F(TlsTest, FailsWhenItsOwnCertificateCannotBeRead)
{
    const TlsServer server;
    givenTrustIn(server);
    givenSetting(u"RestClient:clientCert"_s, u"/no/such/file.pem"_s);
    whenPosted(server.url());

    thenFailedWith(RestClient::TlsFailed);
}

TEST_F(TlsTest, OutlivesAServerThatHangsUp)
{
    const TlsServer server(TlsServer::Manner::HangsUp);
    givenTrustIn(server);
    whenPosted(server.url(), QByteArray(32 * 1024 * 1024, 'x'));

    thenFailedWith(RestClient::AnswerCut);
}

} // namespace

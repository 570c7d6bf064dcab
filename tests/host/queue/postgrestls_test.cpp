// TLS on the way to a shared queue's server: what is verified, and what becomes of a sale when that
// fails.

#include "host/queue/queueerror.h"
#include "host/queue/server/queueserver.h"
#include "tests/host/queue/postgresserver.h"
#include "tests/host/queue/queueengine.h"
#include "tests/host/queue/queuefixture.h"

#include <QProcess>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString host = u"127.0.0.1"_s;

struct TlsCase
{
    const char *name;
    const char *parameters; ///< of the address; %1: folder of the certificates
    const char *host;
    const char *said; ///< why it is not reached; empty: it is
};

class PostgresTlsTest : public testing::TestWithParam<TlsCase>, public QueueFixture
{
protected:
    static void SetUpTestSuite()
    {
        const QString folder = PostgresServer::instance()->folder();
        for (const QString &name : {u"server"_s, u"stranger"_s})
            makeCertificate(folder + u'/' + name);
        PostgresServer::giveAway(folder + u"/server.key"_s);
        ask(u"ALTER SYSTEM SET ssl_cert_file = '%1/server.pem'"_s.arg(folder));
        ask(u"ALTER SYSTEM SET ssl_key_file = '%1/server.key'"_s.arg(folder));
        ask(u"ALTER SYSTEM SET ssl = on"_s);
        reload(u"on"_s);
    }
    static void TearDownTestSuite()
    {
        ask(u"ALTER SYSTEM RESET ALL"_s);
        reload(u"off"_s);
    }
    static QString address(const TlsCase &way)
    {
        return queueengine::setting().replace(host, QString::fromUtf8(way.host)) + u'?'
            + QString::fromUtf8(way.parameters)
                  .replace(u"%1"_s, PostgresServer::instance()->folder());
    }

private:
    /// Makes a self-signed certificate and its key.
    static void makeCertificate(const QString &path)
    {
        QProcess openssl;
        openssl.start(u"openssl"_s,
            {u"req"_s, u"-x509"_s, u"-newkey"_s, u"ec"_s, u"-pkeyopt"_s,
                u"ec_paramgen_curve:prime256v1"_s, u"-nodes"_s, u"-days"_s, u"1"_s, u"-subj"_s,
                u"/CN=queue"_s, u"-addext"_s, u"subjectAltName=IP:"_s + host, u"-keyout"_s,
                path + u".key"_s, u"-out"_s, path + u".pem"_s});
        ASSERT_TRUE(openssl.waitForFinished(-1));
        ASSERT_EQ(openssl.exitCode(), 0) << openssl.readAllStandardError().toStdString();
    }
    static void reload(const QString &awaited)
    {
        ask(u"SELECT pg_reload_conf()"_s);
        while (ask(u"SHOW ssl"_s) != QVariantList{awaited}) { }
    }
};

TEST_P(PostgresTlsTest, VerifiesAsMuchAsTheAddressSays)
{
    const TlsCase &way = GetParam();
    const QString said = QString::fromUtf8(way.said);
    givenSetting(u"Queue:database"_s, address(way));
    givenMessage(u"one"_s);
    const int here = MessageStore(databaseFile()).waiting();
    EXPECT_EQ(here, said.isEmpty() ? 0 : 1);
    try {
        QueueServer server(ServerAddress::read(address(way)));
        QSqlQuery encrypted
            = server.database().run(u"SELECT ssl FROM pg_stat_ssl WHERE pid = pg_backend_pid()"_s);
        ASSERT_TRUE(encrypted.next());
        EXPECT_TRUE(encrypted.value(0).toBool());
        EXPECT_TRUE(said.isEmpty());
    } catch (const QueueUnreached &error) {
        const QString text = QString::fromUtf8(error.what());
        EXPECT_FALSE(said.isEmpty()) << text.toStdString();
        EXPECT_TRUE(text.contains(said)) << text.toStdString();
        EXPECT_FALSE(text.contains(u'\n'));
    }
}

INSTANTIATE_TEST_SUITE_P(Ways, PostgresTlsTest,
    testing::Values(TlsCase{"EncryptedUnverified", "sslmode=require", "127.0.0.1", ""},
        TlsCase{"KnownAuthorityAndName", "sslmode=verify-full&sslrootcert=%1/server.pem",
            "127.0.0.1", ""},
        TlsCase{"StrangeAuthority", "sslmode=verify-full&sslrootcert=%1/stranger.pem", "127.0.0.1",
            "certificate verify failed"},
        TlsCase{"StrangeAuthorityWithoutName", "sslmode=verify-ca&sslrootcert=%1/stranger.pem",
            "127.0.0.1", "certificate verify failed"},
        TlsCase{"OtherName", "sslmode=verify-full&sslrootcert=%1/server.pem", "localhost",
            "does not match host name"},
        TlsCase{
            "OtherNameUnverified", "sslmode=verify-ca&sslrootcert=%1/server.pem", "localhost", ""},
        TlsCase{"AuthorityMissing", "sslmode=verify-full&sslrootcert=%1/none.pem", "127.0.0.1",
            "does not exist"},
        TlsCase{"VersionTooNew", "sslmode=require&ssl_min_protocol_version=TLSv9", "127.0.0.1",
            "ssl_min_protocol_version"},
        TlsCase{"ModeUnknown", "sslmode=perhaps", "127.0.0.1", "invalid sslmode value"}),
    [](const auto &way) { return way.param.name; });

} // namespace

#include "tests/host/net/tlsserver.h"
#include "tests/till/check/rulesfixture.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace till::check;

namespace {

constexpr auto year = 24h * 365;

class CertificatesTest : public RulesFixture
{
public:
    CertificatesTest()
        : server(TlsServer::Manner::Answers, u"127.0.0.1"_s, year)
        , other(TlsServer::Manner::Answers, u"127.0.0.1"_s, year)
    { }

    void givenSettings(const QString &settings)
    {
        givenConfiguration("[RestClient]\n" + settings.toUtf8());
    }
    QStringList found(const QDateTime &now = QDateTime::currentDateTimeUtc())
    {
        return briefly(judgeCertificates(effective(), now));
    }

    const TlsServer server;
    const TlsServer other;
};

TEST_F(CertificatesTest, ThatHoldAndFitAreFine)
{
    EXPECT_EQ(found(), QStringList());
    givenSettings(u"caFile=%1\nclientCert=%1\nclientKey=%2"_s.arg(
        server.certificateFile(), server.keyFile()));
    EXPECT_EQ(found(), QStringList());
}

TEST_F(CertificatesTest, AreToldBeforeTheyEnd)
{
    givenSettings(u"caFile=%1"_s.arg(server.certificateFile()));
    const QDateTime end
        = QDateTime::currentDateTimeUtc().addSecs(std::chrono::seconds(year).count());
    const QString place = u"till.ini:2 RestClient:caFile"_s;

    EXPECT_EQ(found(end.addDays(-31)), QStringList());
    EXPECT_EQ(found(end.addDays(-29)), QStringList{u"warning checkCertificateEnds "_s + place});
    EXPECT_EQ(found(end.addDays(1)), QStringList{u"error checkCertificateEnded "_s + place});
}

TEST_F(CertificatesTest, AreJudgedToTheSecondOfTheirEnd)
{
    const QDateTime end(QDate(2024, 3, 5), QTime(12, 0), Qt::UTC);
    const auto idAt = [&end](const QDateTime &now) {
        return judgeEnd(u"x"_s, end, now, Area::Service, {}).value(0).what.id();
    };
    EXPECT_EQ(idAt(end.addDays(-31)), QString());
    EXPECT_EQ(idAt(end.addDays(-30)), u"checkCertificateEnds"_s);
    EXPECT_EQ(idAt(end.addSecs(-1)), u"checkCertificateEnds"_s);
    EXPECT_EQ(idAt(end), u"checkCertificateEnded"_s);
}

TEST_F(CertificatesTest, NeedTheirKey)
{
    givenSettings(u"clientCert=%1"_s.arg(server.certificateFile()));
    EXPECT_EQ(found(), QStringList{u"error checkKeyMissing till.ini:2 RestClient:clientCert"_s});
    givenSettings(u"clientCert=%1\nclientKey=%2"_s.arg(server.certificateFile(), other.keyFile()));
    EXPECT_EQ(found(), QStringList{u"error checkKeyDiffers till.ini:3 RestClient:clientKey"_s});
    givenSettings(u"clientCert=%1\nclientKey=%1"_s.arg(server.certificateFile()));
    EXPECT_EQ(found(), QStringList{u"error checkKeyMissing till.ini:3 RestClient:clientKey"_s});
}

TEST_F(CertificatesTest, MayHaveTheirKeyInTheSameFile)
{
    QByteArray both;
    for (const QString &part : {server.certificateFile(), server.keyFile()}) {
        QFile file(part);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        both += file.readAll();
    }
    givenSettings(u"clientCert=%1"_s.arg(givenFile(u"both.pem"_s, both)));
    EXPECT_EQ(found(), QStringList());
}

TEST_F(CertificatesTest, AreInTheirFiles)
{
    givenSettings(u"caFile=%1\nclientCert=%1"_s.arg(server.keyFile()));
    EXPECT_EQ(found(),
        (QStringList{u"error checkNoCertificate till.ini:2 RestClient:caFile"_s,
            u"error checkNoCertificate till.ini:3 RestClient:clientCert"_s}));
}

} // namespace

#include "tests/emulator/support/certificate.h"
#include "tests/emulator/support/httpclient.h"
#include "tests/emulator/support/samples.h"
#include "tests/emulator/support/serviceprocess.h"

#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <curl/curl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace emulator {
namespace {

class SecurityTest : public testing::Test
{
protected:
    QString givenFile(const QString &name, const QByteArray &content)
    {
        QFile file(directory.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        return file.fileName();
    }

    QTemporaryDir directory;
    const QByteArray request = sample("balance-request.xml");
};

TEST_F(SecurityTest, WithoutAUserAnyCredentialsPass)
{
    const ServiceProcess service;
    EXPECT_EQ(httpPost(service.url(), request, {{}, u"any:body"_s, {}}).status, 200);
}

TEST_F(SecurityTest, WithAUserOnlyTheRightCredentialsPass)
{
    const QString password = givenFile(u"password"_s, "päss word\n");
    const ServiceProcess service({u"--user"_s, u"till"_s, u"--password-file"_s, password});
    EXPECT_EQ(httpPost(service.url(), request, {{}, u"till:päss word"_s, {}}).status, 200);
    EXPECT_EQ(httpPost(service.url(), request, {{}, u"till:pass word"_s, {}}).status, 401);
    const HttpOutcome refused = httpPost(service.url(), request);
    EXPECT_EQ(refused.status, 401);
    EXPECT_THAT(refused.headers.toStdString(),
        testing::HasSubstr("WWW-Authenticate: Basic realm=\"korvel-service\"\r\n"));
}

TEST_F(SecurityTest, WithAUserTheDescriptionIsForThatUserToo)
{
    const QString password = givenFile(u"password"_s, "word\n");
    const ServiceProcess service({u"--user"_s, u"till"_s, u"--password-file"_s, password});
    for (const QString &path : {u"?wsdl"_s, u"loyalty.xsd"_s}) {
        EXPECT_EQ(httpGet(service.url() + path).status, 401);
        EXPECT_EQ(httpGet(service.url() + path, {{}, u"till:word"_s, {}}).status, 200);
    }
}

TEST_F(SecurityTest, TheDescriptionNamesTheAddressThatWasAsked)
{
    const ServiceProcess plain;
    const QString host = u"Host: <shop>&co:1"_s;
    EXPECT_THAT(httpGet(plain.url() + u"?WSDL"_s, {{host}, {}, {}}).body.toStdString(),
        testing::HasSubstr("location=\"http://&lt;shop&gt;&amp;co:1/\""));
    const QStringList tls = givenCertificate(QDir(directory.path()));
    const ServiceProcess secure(tls);
    EXPECT_THAT(httpGet(secure.url() + u"?wsdl"_s, {{}, {}, tls.at(1)}).body.toStdString(),
        testing::HasSubstr("location=\"" + secure.url().toStdString() + '"'));
}

TEST_F(SecurityTest, TheApiKnowsOnlyItsOwnHost)
{
    const ServiceProcess service;
    EXPECT_EQ(httpGet(service.api("cards"), {{u"Host: evil.example"_s}, {}, {}}).status, 403);
    EXPECT_EQ(httpGet(service.api("cards"), {{u"Host: localhost:1"_s}, {}, {}}).status, 200);
}

TEST_F(SecurityTest, TheApiTakesNothingFromForeignPages)
{
    const ServiceProcess service;
    EXPECT_EQ(
        httpPost(service.api("reset"), "", {{u"Origin: http://evil.example"_s}, {}, {}}).status,
        403);
}

TEST_F(SecurityTest, APagesChangesNeedTheTokenOfTheConsole)
{
    const ServiceProcess service;
    const QByteArray page = httpGet(service.url() + u"console"_s).body;
    const QString token = QRegularExpression(u"name=\"token\" content=\"([0-9a-f]{32})\""_s)
                              .match(QString::fromUtf8(page))
                              .captured(1);
    ASSERT_FALSE(token.isEmpty());
    const QString own = u"Origin: "_s + service.url().chopped(1);
    const QString asked = u"Sec-Fetch-Site: same-origin"_s;
    const auto statusWith = [&](const QStringList &headers) {
        return httpPost(service.api("faults"), "clear", {headers, {}, {}}).status;
    };
    EXPECT_EQ(statusWith({own}), 403);
    EXPECT_EQ(statusWith({asked}), 403);
    EXPECT_EQ(statusWith({own, u"X-Korvel-Token: 00000000000000000000000000000000"_s}), 403);
    EXPECT_EQ(statusWith({own, u"X-Korvel-Token: "_s + token}), 200);
    EXPECT_EQ(httpDelete(service.api("faults/1"), {{own}, {}, {}}).status, 403);
    EXPECT_EQ(httpGet(service.api("faults"), {{own}, {}, {}}).status, 200);
    EXPECT_EQ(statusWith({}), 200);
}

TEST_F(SecurityTest, TheTokenIsNewWithEveryStart)
{
    const ServiceProcess first;
    const ServiceProcess second;
    const auto token = [](const ServiceProcess &service) {
        const QByteArray page = httpGet(service.url() + u"console"_s).body;
        return page.mid(page.indexOf("name=\"token\""), 60);
    };
    EXPECT_NE(token(first), token(second));
    EXPECT_EQ(token(first), token(first));
}

TEST_F(SecurityTest, TheConsoleKnowsOnlyItsOwnHostAndIsHeldInNoFrame)
{
    const ServiceProcess service;
    const QString console = service.url() + u"console"_s;
    EXPECT_EQ(httpGet(console, {{u"Host: evil.example"_s}, {}, {}}).status, 403);
    EXPECT_EQ(httpPost(console, "").status, 405);
    const HttpOutcome page = httpGet(console);
    EXPECT_EQ(page.status, 200);
    EXPECT_THAT(page.headers.toStdString(),
        testing::AllOf(testing::HasSubstr("Content-Security-Policy: default-src 'none'; "),
            testing::HasSubstr("frame-ancestors 'none'"),
            testing::HasSubstr("X-Content-Type-Options: nosniff\r\n"),
            testing::HasSubstr("Cache-Control: no-store\r\n")));
    EXPECT_FALSE(page.body.contains("@nonce@") || page.body.contains("@token@")
        || page.body.contains("@script@") || page.body.contains("@style@"));
}

TEST_F(SecurityTest, TlsIsSpokenWhenACertificateIsGiven)
{
    const QStringList certificate = givenCertificate(QDir(directory.path()));
    const ServiceProcess service(certificate);
    EXPECT_TRUE(service.url().startsWith(u"https://127.0.0.1:"));
    const HttpOutcome outcome = httpPost(service.url(), request, {{}, {}, certificate.at(1)});
    EXPECT_EQ(outcome.curlCode, CURLE_OK);
    EXPECT_EQ(outcome.status, 200);
}

TEST_F(SecurityTest, TlsAnswersAreCutAndLostToo)
{
    const QStringList certificate = givenCertificate(QDir(directory.path()));
    const ServiceProcess service(
        certificate + QStringList{u"--fault"_s, u"all half"_s, u"--fault"_s, u"all lose"_s});
    const HttpOptions trusting{{}, {}, certificate.at(1)};
    EXPECT_NE(httpPost(service.url(), request, trusting).curlCode, CURLE_OK);
    EXPECT_NE(httpPost(service.url(), request, trusting).curlCode, CURLE_OK);
    EXPECT_EQ(httpPost(service.url(), request, trusting).status, 200);
}

TEST_F(SecurityTest, TlsSurvivesThoseWhoDoNotSpeakIt)
{
    const QStringList certificate = givenCertificate(QDir(directory.path()));
    const ServiceProcess service(certificate);
    const QString plain = service.url().replace(u"https"_s, u"http"_s);
    EXPECT_NE(httpPost(plain, request).curlCode, CURLE_OK);
    EXPECT_EQ(httpPost(service.url(), request, {{}, {}, certificate.at(1)}).status, 200);
}

TEST_F(SecurityTest, TheStateFileIsItsOwnersOnly)
{
    const QString path = directory.filePath(u"books"_s);
    const ServiceProcess service({u"--state"_s, path});
    EXPECT_EQ(httpPost(service.url(), request).status, 200);
    constexpr auto others = QFile::ReadGroup | QFile::ReadOther;
    for (const QString &suffix : {u""_s, u"-wal"_s})
        EXPECT_EQ(QFile::permissions(path + suffix) & others, QFile::Permissions());
}

} // namespace
} // namespace emulator

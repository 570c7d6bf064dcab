#include "tests/emulator/recording/support/recorder.h"
#include "tests/emulator/support/certificate.h"
#include "tests/emulator/support/httpclient.h"
#include "tests/emulator/support/samples.h"

#include <QFile>
#include <QScopeGuard>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;
using testing::ContainsRegex;
using testing::HasSubstr;
using testing::Not;

namespace emulator {
namespace {

constexpr int exitWrongUse = 2;
constexpr const char *card = "2900000000017";

class RecordProgramTest : public testing::Test
{
protected:
    static void givenFault(const ServiceProcess &service, const QByteArray &words)
    {
        EXPECT_EQ(httpPost(service.api("faults"), words).status, 200);
    }

    QString givenPassword(const QByteArray &password)
    {
        QFile file(directory.filePath(u"password"_s));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(password);
        return file.fileName();
    }

    static std::string whenRefused(const QStringList &arguments)
    {
        const FinishedRun run = runService(QStringList{u"record"_s} + arguments);
        EXPECT_EQ(run.status, exitWrongUse);
        EXPECT_EQ(run.output, "");
        EXPECT_EQ(run.errors.count('\n'), 1) << run.errors.constData();
        return run.errors.toStdString();
    }

    /// None of the recording's files, nor what was told, holds the text.
    static void thenNowhere(const RecorderProcess &recorder, const QByteArray &text)
    {
        ASSERT_FALSE(recorder.files().isEmpty());
        for (const QString &name : recorder.files())
            EXPECT_FALSE(recorder.file(name).contains(text))
                << text.constData() << " is in " << qPrintable(name);
        EXPECT_FALSE(recorder.errors().contains(text)) << recorder.errors().constData();
    }

    QTemporaryDir directory;
    const QByteArray balance = sample("balance-request.xml");
    const QByteArray soft = sample("sale-soft-request.xml");
    const HttpOptions xml{{u"Content-Type: text/xml"_s}, {}, {}};
};

TEST_F(RecordProgramTest, WritesEachExchangeAsItWas)
{
    const ServiceProcess service;
    RecorderProcess recorder(service.url());
    const HttpOutcome first = httpPost(recorder.url(), balance, xml);
    const HttpOutcome second = httpPost(recorder.url(), soft, xml);
    EXPECT_EQ(recorder.process().terminate(), 0);
    EXPECT_EQ(first.status, 200);
    EXPECT_EQ(recorder.files(),
        (QStringList{u"000001-balance-answer.xml"_s, u"000001-balance-request.xml"_s,
            u"000001-balance.json"_s, u"000002-soft-answer.xml"_s, u"000002-soft-request.xml"_s,
            u"000002-soft.json"_s}));
    EXPECT_EQ(recorder.file(u"000001-balance-request.xml"_s), balance);
    EXPECT_EQ(recorder.file(u"000001-balance-answer.xml"_s), first.body);
    EXPECT_EQ(recorder.file(u"000002-soft-answer.xml"_s), second.body);
    const std::string json = recorder.file(u"000002-soft.json"_s).toStdString();
    EXPECT_THAT(json, HasSubstr("\"number\": 2,\n"));
    EXPECT_THAT(json, HasSubstr("\"card\": \"2900000000017\""));
    EXPECT_THAT(json, HasSubstr("\"status\": 200"));
    EXPECT_THAT(json, HasSubstr("\"contentType\": \"text/xml; charset=utf-8\""));
    EXPECT_THAT(json, HasSubstr("\"Content-Type\": \"text/xml\""));
    EXPECT_THAT(json, HasSubstr("\"cardsMasked\": false"));
    EXPECT_THAT(json, ContainsRegex("\"time\": \"[0-9-]{10}T[0-9:]{8}\\.[0-9]{3}Z\""));
}

TEST_F(RecordProgramTest, GivesTheServicesAnswerBackByteForByte)
{
    const ServiceProcess service;
    const RecorderProcess recorder(service.url());
    for (const char *name : {"balance-request.xml", "sale-soft-request.xml", "fault.xml"}) {
        HttpOutcome direct;
        HttpOutcome through;
        // An answer names its second: all of them must be of the same.
        do {
            direct = httpPost(service.url(), sample(name), xml);
            through = httpPost(recorder.url(), sample(name), xml);
        } while (httpPost(service.url(), sample(name), xml).body != direct.body);
        EXPECT_EQ(through.status, direct.status);
        EXPECT_EQ(withoutDate(through.headers), withoutDate(direct.headers));
        EXPECT_EQ(through.body, direct.body);
    }
}

TEST_F(RecordProgramTest, RecordsEveryOperation)
{
    const ServiceProcess service;
    RecorderProcess recorder(service.url());
    for (const char *name : {"balance-request.xml", "sale-soft-request.xml",
             "sale-fiscal-request.xml", "return-request.xml", "rollback-request.xml"})
        httpPost(recorder.url(), sample(name), xml);
    httpPost(recorder.url(), "junk", xml);
    EXPECT_EQ(recorder.process().terminate(), 0);
    for (const QString &name :
        {u"000001-balance.json"_s, u"000002-soft.json"_s, u"000003-fiscal.json"_s,
            u"000004-return.json"_s, u"000005-rollback.json"_s, u"000006-unreadable.json"_s})
        EXPECT_NE(recorder.file(name), "") << qPrintable(name);
    const std::string unreadable = recorder.file(u"000006-unreadable.json"_s).toStdString();
    EXPECT_THAT(unreadable, HasSubstr("\"operation\": null"));
    EXPECT_THAT(unreadable, HasSubstr("\"card\": null"));
    EXPECT_EQ(recorder.file(u"000006-unreadable-request.xml"_s), "junk");
}

TEST_F(RecordProgramTest, ATillMeetsWhatTheServiceMet)
{
    const ServiceProcess service;
    RecorderProcess recorder(service.url());
    for (const char *fault : {"lose", "half", "reset", "swallow"}) {
        givenFault(service, QByteArray("balance ") + fault);
        const HttpOutcome outcome = httpPost(recorder.url(), balance, xml);
        EXPECT_NE(outcome.curlCode, 0) << fault;
        EXPECT_EQ(outcome.headers, "") << fault;
    }
    givenFault(service, "refuse 1");
    EXPECT_EQ(httpPost(recorder.url(), balance, xml).headers, "");
    EXPECT_EQ(recorder.process().terminate(), 0);
    for (const QString &name : {u"000001"_s, u"000002"_s, u"000003"_s, u"000004"_s, u"000005"_s}) {
        const QByteArray json = recorder.file(name + u"-balance.json");
        EXPECT_TRUE(json.contains("\"status\": null")) << json.constData();
        EXPECT_FALSE(json.contains("\"failure\": null")) << json.constData();
        EXPECT_FALSE(recorder.files().contains(name + u"-balance-answer.xml"));
    }
}

TEST_F(RecordProgramTest, OddAnswersArePassedOn)
{
    const ServiceProcess service;
    RecorderProcess recorder(service.url());
    givenFault(service, "balance status 503");
    givenFault(service, "balance not-xml");
    givenFault(service, "balance empty");
    givenFault(service, "balance redirect 302");
    EXPECT_EQ(httpPost(recorder.url(), balance, xml).status, 503);
    EXPECT_EQ(httpPost(recorder.url(), balance, xml).body.left(15), "This is not XML");
    EXPECT_EQ(httpPost(recorder.url(), balance, xml).body, "");
    EXPECT_EQ(httpPost(recorder.url(), balance, xml).status, 302);
    EXPECT_EQ(recorder.process().terminate(), 0);
    EXPECT_TRUE(recorder.file(u"000001-balance.json"_s).contains("\"status\": 503"));
    EXPECT_TRUE(recorder.files().contains(u"000003-balance-answer.xml"));
}

TEST_F(RecordProgramTest, WritesNoCredentials)
{
    const ServiceProcess service(
        {u"--user"_s, u"till7"_s, u"--password-file"_s, givenPassword("open-sesame")});
    RecorderProcess recorder(service.url());
    HttpOptions options{
        {u"Content-Type: text/xml"_s, u"Cookie: crumbs=secret-crumb"_s, u"X-Api-Key: secret-key"_s},
        u"till7:open-sesame"_s, {}};
    EXPECT_EQ(httpPost(recorder.url(), balance, options).status, 200);
    options.userAndPassword = u"till7:wrong-word"_s;
    EXPECT_EQ(httpPost(recorder.url(), balance, options).status, 401);
    EXPECT_EQ(recorder.process().terminate(), 0);
    for (const QByteArray &secret : {QByteArray("open-sesame"), QByteArray("wrong-word"),
             QByteArray("till7:open-sesame").toBase64(), QByteArray("till7:wrong-word").toBase64(),
             QByteArray("secret-crumb"), QByteArray("secret-key"), QByteArray("Basic ")})
        thenNowhere(recorder, secret);
}

TEST_F(RecordProgramTest, WritesNoCredentialsOfTheUpstreamsUrl)
{
    const ServiceProcess service(
        {u"--user"_s, u"till7"_s, u"--password-file"_s, givenPassword("open-sesame")});
    RecorderProcess recorder(service.url().replace(u"http://"_s, u"http://till7:open-sesame@"_s));
    EXPECT_EQ(httpPost(recorder.url(), balance, xml).status, 200);
    givenFault(service, "refuse 1");
    EXPECT_NE(httpPost(recorder.url(), balance, xml).curlCode, 0);
    EXPECT_EQ(recorder.process().terminate(), 0);
    thenNowhere(recorder, "open-sesame");
    thenNowhere(recorder, "till7");
    thenNowhere(recorder, QByteArray("till7:open-sesame").toBase64());
}

TEST_F(RecordProgramTest, WritesNoCredentialsThatAnAnswerRepeats)
{
    const ServiceProcess service;
    RecorderProcess recorder(service.url());
    // Of a length that gives a Base64 text which can name an element.
    const QByteArray user = "till7:open-sesames";
    const QByteArray secret = user.toBase64();
    const HttpOutcome outcome
        = httpPost(recorder.url(), QByteArray(balance).replace("CardNumber", secret),
            {{u"X-Trace: "_s + QString::fromLatin1(secret)}, QString::fromLatin1(user), {}});
    EXPECT_TRUE(outcome.body.contains(secret)) << outcome.body.constData();
    EXPECT_EQ(recorder.process().terminate(), 0);
    thenNowhere(recorder, secret);
}

TEST_F(RecordProgramTest, MasksCardsWhenAsked)
{
    const ServiceProcess service;
    RecorderProcess recorder(service.url(), {u"--mask-cards"_s});
    const HttpOutcome through
        = httpPost(recorder.url(), balance, {{u"X-Card: 2900000000017"_s}, {}, {}});
    EXPECT_EQ(through.body, httpPost(service.url(), balance).body);
    EXPECT_TRUE(through.body.contains(card));
    httpPost(recorder.url(), "junk <CardNumber>2900000000017</CardNumber>", xml);
    EXPECT_EQ(recorder.process().terminate(), 0);
    thenNowhere(recorder, card);
    EXPECT_EQ(recorder.file(u"000001-balance-answer.xml"_s),
        QByteArray(through.body).replace(card, "2900*****0017"));
    EXPECT_EQ(recorder.file(u"000001-balance-request.xml"_s),
        QByteArray(balance).replace(card, "2900*****0017"));
    EXPECT_TRUE(recorder.file(u"000001-balance.json"_s).contains("\"card\": \"2900*****0017\""));
    EXPECT_TRUE(recorder.file(u"000001-balance.json"_s).contains("\"cardsMasked\": true"));
    EXPECT_TRUE(recorder.errors().contains("000001-balance 2900*****0017 200 "));
}

TEST_F(RecordProgramTest, TellsEachExchangeInALine)
{
    const ServiceProcess service;
    RecorderProcess recorder(service.url());
    httpPost(recorder.url(), balance, xml);
    givenFault(service, "balance lose");
    httpPost(recorder.url(), balance, xml);
    httpPost(recorder.url(), "junk", xml);
    EXPECT_EQ(recorder.process().terminate(), 0);
    // A till may ask again before the line of its last exchange is written.
    QList<QByteArray> lines = recorder.errors().trimmed().split('\n');
    std::sort(lines.begin(), lines.end());
    ASSERT_EQ(lines.size(), 3) << recorder.errors().constData();
    const std::string time = "^[0-9-]{10}T[0-9:]{8}\\.[0-9]{3}Z ";
    EXPECT_THAT(lines[0].toStdString(),
        ContainsRegex(time + "000001-balance 2900000000017 200 [0-9]+ ms$"));
    EXPECT_THAT(lines[1].toStdString(),
        ContainsRegex(time + "000002-balance 2900000000017 no answer \\(.+\\) [0-9]+ ms$"));
    EXPECT_THAT(lines[2].toStdString(), ContainsRegex(time + "000003-unreadable - 500 [0-9]+ ms$"));
    EXPECT_EQ(recorder.process().standardOutput().count('\n'), 1);
}

TEST_F(RecordProgramTest, ContinuesARecording)
{
    const ServiceProcess service;
    RecorderProcess recorder(service.url());
    httpPost(recorder.url(), balance, xml);
    recorder.process().terminate();
    const QByteArray first = recorder.file(u"000001-balance.json"_s);
    recorder.startAgain();
    httpPost(recorder.url(), soft, xml);
    recorder.process().terminate();
    EXPECT_EQ(recorder.file(u"000001-balance.json"_s), first);
    EXPECT_TRUE(recorder.files().contains(u"000002-soft.json"));
}

TEST_F(RecordProgramTest, AnswersAlsoWhenTheDiskIsFull)
{
    const ServiceProcess service;
    rlimit before{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
    // Room for a balance, and for what is told, but for no cheque.
    const rlimit little{1500, before.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &little), 0);
    RecorderProcess recorder(service.url());
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &before), 0);
    EXPECT_EQ(httpPost(recorder.url(), soft, xml).status, 200);
    EXPECT_EQ(httpPost(recorder.url(), balance, xml).status, 200);
    EXPECT_EQ(recorder.process().terminate(), 0);
    EXPECT_EQ(recorder.errors().count("EXCHANGE 1 IS NOT RECORDED: "), 1)
        << recorder.errors().constData();
    EXPECT_EQ(recorder.errors().count("NOT RECORDED"), 1);
    EXPECT_TRUE(recorder.errors().contains("000001-soft-request.xml: cannot be written: "));
    EXPECT_EQ(recorder.files(),
        (QStringList{u"000002-balance-answer.xml"_s, u"000002-balance-request.xml"_s,
            u"000002-balance.json"_s}));
}

TEST_F(RecordProgramTest, ForwardsOnlyWhatTillsSend)
{
    const ServiceProcess service;
    RecorderProcess recorder(service.url());
    const HttpOutcome api = httpPost(recorder.url() + u"api/reset"_s, "");
    EXPECT_EQ(api.status, 404);
    EXPECT_THAT(api.body.toStdString(), HasSubstr("have no API and no page"));
    EXPECT_EQ(httpGet(recorder.url() + u"console"_s).status, 404);
    EXPECT_EQ(httpGet(recorder.url()).status, 405);
    EXPECT_EQ(
        httpPost(recorder.url(), balance, {{u"Origin: http://evil.example"_s}, {}, {}}).status,
        403);
    EXPECT_EQ(recorder.process().terminate(), 0);
    EXPECT_EQ(recorder.files(), QStringList());
}

TEST_F(RecordProgramTest, TrustsOnlyCertificatesThatCanBeVerified)
{
    const QStringList certificate = givenCertificate(QDir(directory.path()));
    const ServiceProcess service(certificate);
    RecorderProcess recorder(service.url());
    EXPECT_NE(httpPost(recorder.url(), balance, xml).curlCode, 0);
    recorder.process().terminate();
    EXPECT_TRUE(recorder.errors().contains("certificate")) << recorder.errors().constData();
}

TEST_F(RecordProgramTest, TrustsACertificateOnlyForItsOwnAddress)
{
    const QStringList certificate = givenCertificate(QDir(directory.path()));
    const ServiceProcess service(certificate + QStringList{u"--listen"_s, u"127.0.0.2:0"_s});
    RecorderProcess recorder(service.url(), {u"--ca-file"_s, certificate.at(1)});
    EXPECT_NE(httpPost(recorder.url(), balance, xml).curlCode, 0);
    recorder.process().terminate();
    EXPECT_TRUE(recorder.errors().contains("127.0.0.2")) << recorder.errors().constData();
}

TEST_F(RecordProgramTest, SpeaksTlsOnBothSides)
{
    const QString keys = directory.filePath(u"keys"_s);
    const QStringList certificate = givenCertificate(QDir(directory.path()));
    const QString authority = certificate.at(1);
    const ServiceProcess service(certificate);
    qputenv("SSLKEYLOGFILE", keys.toUtf8());
    RecorderProcess recorder(service.url(), certificate + QStringList{u"--ca-file"_s, authority});
    qunsetenv("SSLKEYLOGFILE");
    EXPECT_TRUE(recorder.url().startsWith(u"https://"));
    EXPECT_EQ(httpPost(recorder.url(), balance, {{}, {}, authority}).status, 200);
    EXPECT_FALSE(QFile::exists(keys));
}

TEST_F(RecordProgramTest, ExplainsWrongUse)
{
    const QString out = directory.filePath(u"out"_s);
    const QStringList upstream = {u"--upstream"_s, u"http://127.0.0.1:1"_s};
    EXPECT_THAT(whenRefused({u"--out"_s, out}), HasSubstr("--upstream"));
    EXPECT_THAT(whenRefused(upstream), HasSubstr("--out"));
    EXPECT_THAT(whenRefused({u"--upstream"_s, u"ftp://u:hush@h"_s, u"--out"_s, out}),
        testing::AllOf(HasSubstr("--upstream"), Not(HasSubstr("hush"))));
    for (const char *limit : {"0", "3601", "x"})
        EXPECT_THAT(whenRefused(upstream
                        + QStringList{u"--out"_s, out, u"--limit"_s, QString::fromLatin1(limit)}),
            HasSubstr("--limit"));
    EXPECT_THAT(whenRefused(upstream + QStringList{u"--out"_s, out + u"/no/where"_s}),
        HasSubstr("no/where"));
    EXPECT_THAT(whenRefused(upstream + QStringList{u"--out"_s, out, u"--data"_s, u"x"_s}),
        HasSubstr("--data"));
    EXPECT_FALSE(QFile::exists(out));
}

TEST_F(RecordProgramTest, OptionsStandBehindTheSubcommand)
{
    const QStringList record = {u"record"_s, u"--upstream"_s, u"http://127.0.0.1:1"_s, u"--out"_s,
        directory.filePath(u"out"_s)};
    const FinishedRun run = runService(QStringList{u"--listen"_s, u"127.0.0.1:0"_s} + record);
    EXPECT_EQ(run.status, exitWrongUse);
    EXPECT_THAT(run.errors.toStdString(), HasSubstr("--listen must stand behind record"));
    EXPECT_EQ(runService(record + QStringList{u"replay"_s, u"x"_s}).status, exitWrongUse);
}

TEST_F(RecordProgramTest, HelpListsWhatThereIs)
{
    const std::string all = runService({u"--help"_s}).output.toStdString();
    EXPECT_THAT(all, HasSubstr("record"));
    EXPECT_THAT(all, HasSubstr("replay"));
    const FinishedRun help = runService({u"record"_s, u"--help"_s});
    EXPECT_EQ(help.status, 0);
    for (const char *option : {"--upstream", "--out", "--listen", "--mask-cards", "--tls-cert",
             "--tls-key", "--limit", "--ca-file"})
        EXPECT_THAT(help.output.toStdString(), HasSubstr(option));
}

} // namespace
} // namespace emulator

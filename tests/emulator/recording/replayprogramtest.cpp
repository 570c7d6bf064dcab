#include "tests/emulator/recording/support/recorder.h"
#include "tests/emulator/support/certificate.h"
#include "tests/emulator/support/httpclient.h"
#include "tests/emulator/support/samples.h"

#include <QElapsedTimer>
#include <QFile>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;
using testing::HasSubstr;

namespace emulator {
namespace {

constexpr int exitWrongUse = 2;

const std::vector<const char *> operations
    = {"balance-request.xml", "sale-soft-request.xml", "sale-points-request.xml",
        "sale-fiscal-request.xml", "return-request.xml", "rollback-request.xml"};

class ReplayProgramTest : public testing::Test
{
protected:
    static std::vector<HttpOutcome> whenAllPosted(const QString &url)
    {
        std::vector<HttpOutcome> outcomes;
        for (const char *name : operations)
            outcomes.push_back(httpPost(url, sample(name)));
        return outcomes;
    }

    static void thenSame(
        const std::vector<HttpOutcome> &replayed, const std::vector<HttpOutcome> &recorded)
    {
        for (std::size_t index = 0; index < operations.size(); ++index) {
            SCOPED_TRACE(operations[index]);
            EXPECT_EQ(replayed[index].curlCode == 0, recorded[index].curlCode == 0);
            EXPECT_EQ(replayed[index].status, recorded[index].status);
            EXPECT_EQ(withoutDate(replayed[index].headers), withoutDate(recorded[index].headers));
            EXPECT_EQ(replayed[index].body, recorded[index].body);
        }
    }

    QStringList replayOf(const RecorderProcess &recorder) const
    {
        return {u"replay"_s, recorder.folder()};
    }

    QString errorFile() const { return directory.filePath(u"replay-errors"_s); }

    const ServiceProcess service;
    const QTemporaryDir directory;
};

TEST_F(ReplayProgramTest, AnswersAsTheServiceDid)
{
    RecorderProcess recorder(service.url());
    const auto recorded = whenAllPosted(recorder.url());
    EXPECT_EQ(recorder.process().terminate(), 0);
    ServiceProcess replay(replayOf(recorder), errorFile());
    thenSame(whenAllPosted(replay.url()), recorded);
    EXPECT_EQ(replay.terminate(), 0);
    EXPECT_EQ(
        contentOf(errorFile()), "matched 6, not matched 0, recorded but never asked for: 0\n");
}

TEST_F(ReplayProgramTest, AnswersTillsTheSameFromMaskedFiles)
{
    RecorderProcess recorder(service.url(), {u"--mask-cards"_s});
    const auto recorded = whenAllPosted(recorder.url());
    EXPECT_EQ(recorder.process().terminate(), 0);
    const ServiceProcess replay(replayOf(recorder), errorFile());
    thenSame(whenAllPosted(replay.url()), recorded);
}

TEST_F(ReplayProgramTest, FaultsHappenAgain)
{
    RecorderProcess recorder(service.url());
    const std::vector<const char *> faults = {"balance lose", "soft half", "soft status 503",
        "fiscal not-xml", "return reset", "rollback code 80001"};
    for (const char *fault : faults)
        EXPECT_EQ(httpPost(service.api("faults"), fault).status, 200);
    const auto recorded = whenAllPosted(recorder.url());
    EXPECT_EQ(recorder.process().terminate(), 0);
    EXPECT_NE(recorded[0].curlCode, 0);
    EXPECT_EQ(recorded[2].status, 503);
    const ServiceProcess replay(replayOf(recorder), errorFile());
    thenSame(whenAllPosted(replay.url()), recorded);
}

TEST_F(ReplayProgramTest, ComesAsLateAsRecordedWhenAsked)
{
    constexpr int milliseconds = 300;
    RecorderProcess recorder(service.url());
    EXPECT_EQ(httpPost(service.api("faults"), "balance delay 300").status, 200);
    httpPost(recorder.url(), sample("balance-request.xml"));
    EXPECT_EQ(recorder.process().terminate(), 0);
    const ServiceProcess replay(replayOf(recorder) + QStringList{u"--with-times"_s}, errorFile());
    QElapsedTimer time;
    time.start();
    EXPECT_EQ(httpPost(replay.url(), sample("balance-request.xml")).status, 200);
    EXPECT_GE(time.elapsed(), milliseconds);
}

TEST_F(ReplayProgramTest, TellsWhatItCannotMatchInALineAndSumsUp)
{
    RecorderProcess recorder(service.url());
    httpPost(recorder.url(), sample("balance-request.xml"));
    httpPost(recorder.url(), sample("sale-soft-request.xml"));
    EXPECT_EQ(recorder.process().terminate(), 0);
    ServiceProcess replay(replayOf(recorder), errorFile());
    const QByteArray asked = sample("sale-soft-request.xml").replace("399.00", "390.00");
    const HttpOutcome outcome = httpPost(replay.url(), asked);
    EXPECT_EQ(outcome.status, 500);
    EXPECT_EQ(complaintOfSchemaFiles(outcome.body), QString());
    EXPECT_EQ(replay.terminate(), 0);
    EXPECT_EQ(contentOf(errorFile()),
        "korvel-service: no answer was recorded for soft, card 2900000000017, "
        "1001 × 2.000 at 45.90; 1004 × 1.000 at 390.00; 1003 × 0.500 at 649.00; "
        "nearest is 000002-soft with the same operation and card, but "
        "1001 × 2.000 at 45.90; 1004 × 1.000 at 399.00; 1003 × 0.500 at 649.00\n"
        "matched 0, not matched 1, recorded but never asked for: 2 "
        "(000001-balance, 000002-soft)\n");
}

TEST_F(ReplayProgramTest, WarnsOfWhatWasCutOff)
{
    RecorderProcess recorder(service.url());
    httpPost(recorder.url(), sample("balance-request.xml"));
    httpPost(recorder.url(), sample("balance-request.xml"));
    EXPECT_EQ(recorder.process().terminate(), 0);
    ASSERT_TRUE(QFile::remove(recorder.folder() + u"/000002-balance.json"_s));
    ServiceProcess replay(replayOf(recorder), errorFile());
    EXPECT_EQ(replay.terminate(), 0);
    EXPECT_THAT(contentOf(errorFile()).toStdString(),
        HasSubstr("000002-balance: passed over, its recording was cut off"));
}

TEST_F(ReplayProgramTest, SpeaksTls)
{
    RecorderProcess recorder(service.url());
    httpPost(recorder.url(), sample("balance-request.xml"));
    EXPECT_EQ(recorder.process().terminate(), 0);
    const QStringList certificate = givenCertificate(QDir(directory.path()));
    const ServiceProcess replay(replayOf(recorder) + certificate, errorFile());
    const HttpOptions options{{}, {}, certificate.at(1)};
    EXPECT_EQ(httpPost(replay.url(), sample("balance-request.xml"), options).status, 200);
}

TEST_F(ReplayProgramTest, ExplainsWrongUse)
{
    const QString missing = directory.filePath(u"missing"_s);
    FinishedRun run = runService({u"replay"_s, missing});
    EXPECT_EQ(run.status, exitWrongUse);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.errors, u"korvel-service: %1: there is no such folder\n"_s.arg(missing).toUtf8());
    run = runService({u"replay"_s});
    EXPECT_EQ(run.status, exitWrongUse);
    EXPECT_THAT(run.errors.toStdString(), HasSubstr("DIR"));
    run = runService({u"--user"_s, u"u"_s, u"--password-file"_s, u"f"_s, u"replay"_s, missing});
    EXPECT_EQ(run.status, exitWrongUse);
    EXPECT_THAT(run.errors.toStdString(), HasSubstr("must stand behind replay"));
}

} // namespace
} // namespace emulator

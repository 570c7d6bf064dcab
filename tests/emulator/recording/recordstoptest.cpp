#include "tests/emulator/recording/support/recorder.h"
#include "tests/emulator/support/heldservice.h"
#include "tests/emulator/support/httpclient.h"
#include "tests/emulator/support/samples.h"

#include <QFile>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <future>

using namespace Qt::Literals::StringLiterals;

namespace emulator {
namespace {

/// Tills, a recorder and a service that answers when the test says so.
class RecordStopTest : public testing::Test
{
protected:
    std::future<HttpOutcome> whenPosted(const QString &url, const char *name)
    {
        return std::async(
            std::launch::async, [url, body = sample(name)] { return httpPost(url, body); });
    }

    static bool isReady(const std::future<HttpOutcome> &outcome)
    {
        return outcome.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
    }

    /// SIGTERM has been taken when the door is shut.
    void whenAskedToEnd()
    {
        recorder.process().askToEnd();
        while (httpPost(recorder.url() + u"api/"_s, "").curlCode == 0)
            ;
    }

    const QTemporaryDir directory;
    HeldService service;
    RecorderProcess recorder{service.url()};
};

TEST_F(RecordStopTest, TillsDoNotWaitForEachOther)
{
    std::future<HttpOutcome> slow = whenPosted(recorder.url(), "sale-soft-request.xml");
    const HeldService::Asked held = service.next();
    std::future<HttpOutcome> fast = whenPosted(recorder.url(), "balance-request.xml");
    service.next().respond(textReply(200, u"fast"_s));
    EXPECT_EQ(fast.get().body, "fast\n");
    EXPECT_FALSE(isReady(slow));
    held.respond(textReply(200, u"slow"_s));
    EXPECT_EQ(slow.get().body, "slow\n");
    EXPECT_EQ(recorder.process().terminate(), 0);
    // Numbers tell the order in which the requests came.
    EXPECT_EQ(recorder.file(u"000001-soft-answer.xml"_s), "slow\n");
    EXPECT_EQ(recorder.file(u"000002-balance-answer.xml"_s), "fast\n");
}

TEST_F(RecordStopTest, WhatIsUnderWayIsAnsweredAndWritten)
{
    std::future<HttpOutcome> outcome = whenPosted(recorder.url(), "sale-fiscal-request.xml");
    const HeldService::Asked held = service.next();
    whenAskedToEnd();
    EXPECT_TRUE(recorder.process().isRunning());
    HttpReply large = textReply(200, QString(8'000'000, u'x'));
    held.respond(large);
    EXPECT_EQ(outcome.get().body, large.body);
    EXPECT_EQ(recorder.process().waitForEnd(), 0);
    EXPECT_EQ(recorder.file(u"000001-fiscal-answer.xml"_s), large.body);
    EXPECT_TRUE(recorder.file(u"000001-fiscal.json"_s).contains("\"status\": 200"));
}

TEST_F(RecordStopTest, ASecondSignalCutsItOff)
{
    std::future<HttpOutcome> outcome = whenPosted(recorder.url(), "sale-fiscal-request.xml");
    const HeldService::Asked held = service.next();
    whenAskedToEnd();
    EXPECT_EQ(recorder.process().terminate(), 0);
    EXPECT_NE(outcome.get().curlCode, 0);
    EXPECT_TRUE(recorder.file(u"000001-fiscal.json"_s)
                    .contains("\"failure\": \"the recorder was stopped\""));
    held.respond(textReply(200, u"too late"_s));
}

TEST_F(RecordStopTest, WithNothingUnderWayItEndsAtOnce)
{
    EXPECT_EQ(httpGet(recorder.url()).status, 405);
    EXPECT_EQ(recorder.process().terminate(), 0);
}

TEST_F(RecordStopTest, WaitsForTheServiceNoLongerThanItsLimit)
{
    recorder.startAgain({u"--limit"_s, u"1"_s});
    std::future<HttpOutcome> outcome = whenPosted(recorder.url(), "balance-request.xml");
    const HeldService::Asked held = service.next();
    EXPECT_EQ(outcome.get().headers, "");
    EXPECT_EQ(recorder.process().terminate(), 0);
    EXPECT_TRUE(recorder.file(u"000001-balance.json"_s).contains("timed out"));
    held.respond(textReply(200, u"too late"_s));
}

TEST_F(RecordStopTest, MasksCardsThatOnlyTheAnswerNames)
{
    recorder.startAgain({u"--mask-cards"_s});
    std::future<HttpOutcome> outcome = whenPosted(recorder.url(), "balance-request.xml");
    service.next().respond(textReply(200, u"<CardNumber>4000000000000002</CardNumber>"_s));
    EXPECT_EQ(outcome.get().body, "<CardNumber>4000000000000002</CardNumber>\n");
    EXPECT_EQ(recorder.process().terminate(), 0);
    EXPECT_EQ(recorder.file(u"000001-balance-answer.xml"_s),
        "<CardNumber>4000********0002</CardNumber>\n");
}

TEST_F(RecordStopTest, LivesOnWithoutItsTerminal)
{
    const QByteArray pipe = QFile::encodeName(directory.filePath(u"pipe"_s));
    ASSERT_EQ(::mkfifo(pipe.constData(), S_IRUSR | S_IWUSR), 0);
    const int terminal = ::open(pipe.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    ServiceProcess untold({u"record"_s, u"--upstream"_s, service.url() + u"at-once"_s, u"--out"_s,
                              directory.filePath(u"out"_s)},
        QFile::decodeName(pipe));
    ::close(terminal);
    for (int time = 0; time < 2; ++time)
        EXPECT_EQ(httpPost(untold.url(), sample("balance-request.xml")).status, 200);
    EXPECT_EQ(untold.terminate(), 0);
    EXPECT_TRUE(QFile::exists(directory.filePath(u"out/000002-balance.json"_s)));
}

TEST_F(RecordStopTest, AnAnswerWithoutATypeStaysWithoutOne)
{
    std::future<HttpOutcome> outcome = whenPosted(recorder.url(), "balance-request.xml");
    service.next().respond(HttpReply());
    EXPECT_FALSE(outcome.get().headers.contains("Content-Type"));
    EXPECT_EQ(recorder.process().terminate(), 0);
    EXPECT_TRUE(recorder.file(u"000001-balance.json"_s).contains("\"contentType\": \"\""));
}

/// The same with a real service that delays its answer.
TEST(RecordDelayTest, ADelayedTillHoldsUpNobody)
{
    const ServiceProcess service;
    RecorderProcess recorder(service.url());
    EXPECT_EQ(httpPost(service.api("faults"), "soft delay 25000").status, 200);
    std::future<HttpOutcome> slow = std::async(std::launch::async,
        [url = recorder.url()] { return httpPost(url, sample("sale-soft-request.xml")); });
    while (!httpGet(service.api("exchanges")).body.contains("\"soft\""))
        ;
    EXPECT_EQ(httpPost(recorder.url(), sample("balance-request.xml")).status, 200);
    EXPECT_EQ(slow.wait_for(std::chrono::seconds(0)), std::future_status::timeout);
    recorder.process().askToEnd();
    while (httpGet(recorder.url()).curlCode == 0)
        ;
    EXPECT_EQ(recorder.process().terminate(), 0);
    EXPECT_NE(slow.get().curlCode, 0);
}

} // namespace
} // namespace emulator

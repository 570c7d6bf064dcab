// The commands on a queue that many tills share, while its server is there and while it is not.

#include "host/queue/server/queueserver.h"
#include "tests/host/queue/postgresserver.h"
#include "tests/host/queue/queueengine.h"
#include "tests/support/scriptedserver.h"
#include "tests/till/queue/queueprogramfixture.h"

#include <QDeadlineTimer>

#include <csignal>

using namespace Qt::StringLiterals;

namespace {

const QByteArray accepted
    = "<Envelope><ChequeResponse><ReturnCode>0</ReturnCode></ChequeResponse></Envelope>";
const QByteArray deliveredOne = "delivered 1, refused 0, failed 0, parked 0; waiting 0\n";

class SharedQueueTest : public QueueProgramFixture
{
public:
    SharedQueueTest()
    {
        queueengine::begin();
        service.answer(accepted);
        m_config = givenFile(
            u"shared.ini"_s, "[Queue]\ndatabase=" + queueengine::setting().toUtf8() + '\n');
    }
    ~SharedQueueTest() override
    {
        if (m_watch.state() != QProcess::NotRunning) {
            m_watch.kill();
            m_watch.waitForFinished();
        }
        if (!m_isUp)
            givenServerBack();
    }

    void givenServerAway()
    {
        PostgresServer::instance()->stop();
        m_isUp = false;
    }
    void givenServerBack()
    {
        PostgresServer::instance()->start();
        m_isUp = true;
    }
    QueueMessage messageFor(const QString &id) const
    {
        QueueMessage message = makeMessage(id);
        message.url = service.url().toString();
        message.lane = u"1-1"_s;
        return message;
    }
    /// As another till has put it there.
    void givenSharedMessage(const QString &id) const
    {
        queueengine::openStore()->append(messageFor(id));
    }
    void givenWatch()
    {
        m_watch.start(QStringLiteral(TILL_PROGRAM),
            {u"queue"_s, u"watch"_s, u"--state"_s, stateFolder(), u"--config"_s, m_config});
        ASSERT_TRUE(m_watch.waitForStarted());
    }
    void whenSharedAsked(const QStringList &words)
    {
        whenAsked(words + QStringList{u"--config"_s, m_config});
    }
    /// Waits until the service has written a line about what it cannot do, or can again.
    QByteArray nextComplaint() { return nextLine(QProcess::StandardError); }
    QByteArray nextDelivery() { return nextLine(QProcess::StandardOutput); }
    /// Waits until it has tried in vain that often.
    void thenHasFailed(int times) const
    {
        QFile log(stateFolder() + u"/log/watch/korvel.log"_s);
        const QDeadlineTimer patience(std::chrono::minutes(2));
        int failures = 0;
        while (failures < times && !patience.hasExpired()) {
            std::this_thread::yield();
            log.close();
            if (log.open(QIODevice::ReadOnly))
                failures = static_cast<int>(log.readAll().count("till.watch"));
        }
        EXPECT_GE(failures, times);
    }
    void thenEndsWhenAsked()
    {
        ::kill(static_cast<pid_t>(m_watch.processId()), SIGTERM);
        ASSERT_TRUE(m_watch.waitForFinished());
        EXPECT_EQ(m_watch.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(m_watch.exitCode(), 0);
        EXPECT_EQ(m_watch.readAllStandardError(), "");
    }

    ScriptedServer service;

private:
    QByteArray nextLine(QProcess::ProcessChannel channel)
    {
        m_watch.setReadChannel(channel);
        while (!m_watch.canReadLine())
            if (!m_watch.waitForReadyRead()) {
                ADD_FAILURE() << "the service says nothing";
                return {};
            }
        return m_watch.readLine();
    }

    QString m_config;
    QProcess m_watch;
    bool m_isUp = true;
};

TEST_F(SharedQueueTest, WatchDeliversWhatOtherMachinesPutThere)
{
    givenSharedMessage(u"aa"_s);
    givenWatch();
    EXPECT_EQ(nextDelivery(), deliveredOne);
    givenSharedMessage(u"bb"_s);
    EXPECT_EQ(nextDelivery(), deliveredOne);
    thenEndsWhenAsked();
}

TEST_F(SharedQueueTest, WatchOutlivesItsServerAndTellsOnce)
{
    givenSharedMessage(u"aa"_s);
    givenWatch();
    EXPECT_EQ(nextDelivery(), deliveredOne);
    givenServerAway();
    const QByteArray complaint = nextComplaint();
    EXPECT_TRUE(complaint.startsWith("korvel-till: postgresql://till@127.0.0.1:"))
        << complaint.toStdString();
    EXPECT_TRUE(complaint.endsWith("; it is tried again until it can be used\n"))
        << complaint.toStdString();
    // One line for the start, one for each attempt.
    thenHasFailed(3);
    givenServerBack();
    EXPECT_EQ(nextComplaint(), "korvel-till: the queue can be used again\n");
    givenSharedMessage(u"bb"_s);
    EXPECT_EQ(nextDelivery(), deliveredOne);
    thenEndsWhenAsked();
}

TEST_F(SharedQueueTest, WatchThatStartsWithoutItsServerMovesAndDeliversWhatWaitedHere)
{
    givenServerAway();
    givenMessage(messageFor(u"aa"_s));
    givenWatch();
    EXPECT_TRUE(nextComplaint().contains("the queue's server cannot be reached: "));
    givenServerBack();
    EXPECT_EQ(nextComplaint(), "korvel-till: the queue can be used again\n");
    EXPECT_EQ(nextDelivery(), deliveredOne);
    EXPECT_EQ(stateOf(u"aa"_s), stateName(QueueMessage().state));
    thenEndsWhenAsked();
}

TEST_F(SharedQueueTest, DeliverSaysThatTheServerIsAway)
{
    givenServerAway();
    givenMessage(messageFor(u"aa"_s));
    for (const QStringList &words : {QStringList{u"deliver"_s}, {u"watch"_s, u"--once"_s}}) {
        whenSharedAsked(words);
        thenFails(3, u"korvel-till: postgresql://till@127.0.0.1:"_s);
        EXPECT_TRUE(errors.contains("the queue's server cannot be reached: "))
            << errors.toStdString();
        EXPECT_FALSE(errors.contains("word's"));
    }
    EXPECT_TRUE(service.requests().isEmpty());
    EXPECT_EQ(stateOf(u"aa"_s), u"pending"_s);
}

TEST_F(SharedQueueTest, StatusAndListShowWhatWaitsHereWhileTheServerIsAway)
{
    givenServerAway();
    givenMessage(messageFor(u"aa"_s));
    whenSharedAsked({u"status"_s});
    EXPECT_EQ(status, 1) << outputText().toStdString();
    EXPECT_TRUE(output.contains("the shared queue cannot be reached, and its messages are not "
                                "seen: postgresql://till@127.0.0.1:"))
        << output.toStdString();
    whenSharedAsked({u"list"_s, u"--json"_s});
    EXPECT_EQ(status, 0);
    EXPECT_TRUE(output.contains("\"id\":\"aa\""));
    givenServerBack();
    whenSharedAsked({u"status"_s});
    EXPECT_EQ(status, 0) << outputText().toStdString();
    EXPECT_EQ(queueengine::openStore()->waiting(), 1);
}

} // namespace

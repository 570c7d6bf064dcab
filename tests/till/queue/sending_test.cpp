// deliver and watch, against a service.

#include "host/queue/spillfile.h"
#include "tests/host/storage/files.h"
#include "tests/support/scriptedserver.h"
#include "tests/till/queue/holdingserver.h"
#include "tests/till/queue/queueprogramfixture.h"

#include <QRegularExpression>

#include <csignal>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

const QByteArray accepted
    = "<Envelope><ChequeResponse><ReturnCode>0</ReturnCode></ChequeResponse></Envelope>";
const QByteArray refused
    = "<Envelope><ChequeResponse><ReturnCode>80241</ReturnCode></ChequeResponse></Envelope>";

constexpr auto multiLine = QRegularExpression::MultilineOption;

class SendingTest : public QueueProgramFixture
{
public:
    ~SendingTest() override
    {
        for (const auto &process : m_processes)
            if (process->state() != QProcess::NotRunning) {
                process->kill();
                process->waitForFinished();
            }
    }

    [[nodiscard]] QueueMessage messageFor(const QString &id) const
    {
        QueueMessage message = makeMessage(id);
        message.url = service.url().toString();
        message.body = "<message>" + id.toUtf8() + "</message>";
        message.lane = u"1-1"_s;
        return message;
    }
    void givenMessageFor(const QString &id, const QDateTime &nextAttempt = {})
    {
        QueueMessage message = messageFor(id);
        if (nextAttempt.isValid())
            message.nextAttempt = nextAttempt;
        givenMessage(message);
    }
    QProcess &givenWatch(const QStringList &words = {})
    {
        return givenRunning(QStringList{u"watch"_s} + words);
    }
    QProcess &givenRunning(const QStringList &words)
    {
        m_processes.push_back(std::make_unique<QProcess>());
        QProcess &process = *m_processes.back();
        process.start(QStringLiteral(TILL_PROGRAM),
            QStringList{u"queue"_s} + words + QStringList{u"--state"_s, stateFolder()});
        EXPECT_TRUE(process.waitForStarted());
        return process;
    }
    /// Waits until the process has written a line.
    static QByteArray nextLine(QProcess &process)
    {
        while (!process.canReadLine())
            if (!process.waitForReadyRead()) {
                ADD_FAILURE() << process.readAllStandardError().toStdString();
                return {};
            }
        return process.readLine();
    }
    /// A process that has just been started would still be ended by the signal.
    static void waitUntilHandled(const QProcess &process, int signal)
    {
        const QString fileName = u"/proc/%1/status"_s.arg(process.processId());
        const QRegularExpression handled(u"^SigCgt:\\s*([0-9a-f]+)$"_s, multiLine);
        const QRegularExpression ended(u"^State:\\s*Z"_s, multiLine);
        const auto bit = quint64{1} << (signal - 1);
        for (bool isHandled = false; !isHandled; std::this_thread::yield()) {
            const QString status = QString::fromLatin1(files::contents(fileName));
            const QString mask = handled.match(status).captured(1);
            constexpr int hexadecimal = 16;
            isHandled = mask.toULongLong(nullptr, hexadecimal) & bit;
            ASSERT_FALSE(mask.isEmpty() || ended.match(status).hasMatch())
                << "it has ended by itself";
        }
    }
    static int whenSignalled(QProcess &process, int signal)
    {
        waitUntilHandled(process, signal);
        ::kill(static_cast<pid_t>(process.processId()), signal);
        EXPECT_TRUE(process.waitForFinished());
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        if (process.exitCode() != 0)
            ADD_FAILURE() << process.readAllStandardError().toStdString();
        return process.exitCode();
    }
    QList<QByteArray> sent() const
    {
        QList<QByteArray> bodies;
        for (const auto &request : service.requests())
            bodies.append(request.body);
        return bodies;
    }

    ScriptedServer service;

private:
    std::vector<std::unique_ptr<QProcess>> m_processes;
};

TEST_F(SendingTest, DeliverSendsWhatWaitsDueOrNot)
{
    service.answer(accepted);
    givenMessageFor(u"aa"_s);
    givenMessageFor(u"bb"_s, QDateTime::currentDateTimeUtc().addSecs(600));
    whenAsked({u"deliver"_s});
    EXPECT_EQ(status, 0) << errors.toStdString();
    EXPECT_EQ(output, "delivered 2, refused 0, failed 0, parked 0; waiting 0\n");
    EXPECT_EQ(sent(), (QList<QByteArray>{"<message>aa</message>", "<message>bb</message>"}));
    EXPECT_EQ(stateOf(u"aa"_s), u"delivered"_s);
}

TEST_F(SendingTest, DeliverJudgesAnswersAsTheTillDoes)
{
    service.answer(refused);
    service.answer("<html>proxy</html>");
    givenMessageFor(u"aa"_s);
    givenMessageFor(u"bb"_s);
    const auto report = whenAskedForJson({u"deliver"_s});
    EXPECT_EQ(status, 1);
    EXPECT_EQ(report["refused"], 1);
    EXPECT_EQ(report["failed"], 1);
    EXPECT_EQ(report["waiting"], 1);
    EXPECT_EQ(stateOf(u"aa"_s), u"refused"_s);
    EXPECT_EQ(message(u"aa"_s).lastCode, 80241);
    EXPECT_EQ(stateOf(u"bb"_s), u"pending"_s);
    EXPECT_TRUE(errors.contains("refused and parked messages need a person"));
}

TEST_F(SendingTest, ThePageOfAProxyStandsWithTheMessage)
{
    service.answer("<html>No way out</html>", 502);
    givenMessageFor(u"aa"_s);
    whenAsked({u"deliver"_s});
    EXPECT_EQ(status, 1);
    EXPECT_EQ(whenAskedForJson({u"show"_s, u"aa"_s})["answer"], "<html>No way out</html>");
}

TEST_F(SendingTest, DeliverSaysWhatToDoAboutCredentials)
{
    service.answer("", 401);
    givenMessageFor(u"aa"_s);
    givenMessageFor(u"bb"_s);
    whenAsked({u"deliver"_s});
    thenFails(1, u"korvel-till: the service does not accept the credentials"_s);
    EXPECT_TRUE(errors.contains("korvel-till queue reauthorise"));
    EXPECT_EQ(sent().size(), 1);
}

class CredentialsTest : public SendingTest, public testing::WithParamInterface<int>
{ };

TEST_P(CredentialsTest, WatchOnceStopsThePassAndSaysWhatToDo)
{
    service.answer("", GetParam());
    givenMessageFor(u"aa"_s);
    givenMessageFor(u"bb"_s);
    whenAsked({u"watch"_s, u"--once"_s});
    thenFails(1, u"korvel-till: the service does not accept the credentials"_s);
    EXPECT_TRUE(errors.contains("korvel-till queue reauthorise"));
    EXPECT_EQ(output, "delivered 0, refused 0, failed 1, parked 0; waiting 2\n");
    EXPECT_EQ(sent().size(), 1);
    EXPECT_EQ(message(u"aa"_s).lastCode, GetParam());
}

TEST_P(CredentialsTest, WatchSaysItAndGoesOn)
{
    service.answer("", GetParam());
    service.answer(accepted);
    givenMessageFor(u"aa"_s);
    givenMessageFor(u"bb"_s);
    QProcess &watch = givenWatch({u"--json"_s});
    EXPECT_EQ(nlohmann::json::parse(nextLine(watch).toStdString())["unauthorised"], true);
    const QByteArray settings = "[KorvelLoyaltyOnline]\nuser = till\npassword = new\n";
    whenAsked({u"reauthorise"_s, u"--config"_s, givenFile(u"new.ini"_s, settings)});
    EXPECT_EQ(status, 0) << errors.toStdString();
    // By chance the service may have been asked for one of them again before.
    for (int delivered = 0; delivered < 2 && !HasFailure();)
        delivered += nlohmann::json::parse(nextLine(watch).toStdString())["delivered"].get<int>();
    EXPECT_EQ(whenSignalled(watch, SIGTERM), 0);
    EXPECT_TRUE(watch.readAllStandardError().contains("korvel-till queue reauthorise"));
}

INSTANTIATE_TEST_SUITE_P(Statuses, CredentialsTest, testing::Values(401, 403));

TEST_F(SendingTest, WatchDeliversWhatWasThereAndWhatComes)
{
    service.answer(accepted);
    givenMessageFor(u"aa"_s);
    QProcess &watch = givenWatch();
    EXPECT_EQ(nextLine(watch), "delivered 1, refused 0, failed 0, parked 0; waiting 0\n");
    givenMessageFor(u"bb"_s);
    EXPECT_EQ(nextLine(watch), "delivered 1, refused 0, failed 0, parked 0; waiting 0\n");
    EXPECT_EQ(sent(), (QList<QByteArray>{"<message>aa</message>", "<message>bb</message>"}));
    EXPECT_EQ(whenSignalled(watch, SIGTERM), 0);
}

TEST_F(SendingTest, WatchTakesInAndDeliversWhatWasSpilled)
{
    service.answer(accepted);
    givenMessageFor(u"aa"_s);
    QProcess &watch = givenWatch();
    EXPECT_EQ(nextLine(watch), "delivered 1, refused 0, failed 0, parked 0; waiting 0\n");
    SpillFile(databaseFile() + u".spill"_s).append(messageFor(u"bb"_s));
    EXPECT_EQ(nextLine(watch), "delivered 1, refused 0, failed 0, parked 0; waiting 0\n");
    EXPECT_EQ(sent().value(1), "<message>bb</message>");
    EXPECT_EQ(whenSignalled(watch, SIGTERM), 0);
    EXPECT_EQ(stateOf(u"bb"_s), u"delivered"_s);
}

TEST_F(SendingTest, WhatCannotBeTakenInIsNotAllDelivered)
{
    service.answer(accepted);
    givenMessageFor(u"aa"_s);
    givenSpilled(messageFor(u"bb"_s));
    for (const QStringList &words : {QStringList{u"deliver"_s}, {u"watch"_s, u"--once"_s}}) {
        whenAsked(words);
        thenFails(1, u"korvel-till: the queue's file cannot take 1 message, "_s);
    }
    EXPECT_EQ(sent().size(), 1);
    givenRoom();
    whenAsked({u"deliver"_s});
    EXPECT_EQ(status, 0) << errors.toStdString();
    EXPECT_EQ(sent().size(), 2);
}

TEST_F(SendingTest, WatchLeavesAloneWhatIsNotDue)
{
    service.answer(accepted);
    givenMessageFor(u"aa"_s, QDateTime::currentDateTimeUtc().addSecs(600));
    givenMessageFor(u"bb"_s);
    QProcess &watch = givenWatch({u"--json"_s});
    const auto report = nlohmann::json::parse(nextLine(watch).toStdString());
    EXPECT_EQ(report["delivered"], 1);
    EXPECT_EQ(report["waiting"], 1);
    EXPECT_EQ(sent(), QList<QByteArray>{"<message>bb</message>"});
    EXPECT_EQ(whenSignalled(watch, SIGINT), 0);
}

class EndingTest : public SendingTest, public testing::WithParamInterface<int>
{
public:
    HoldingServer holding;
};

TEST_P(EndingTest, TheMessageInHandIsFinishedAndTheNextOneLeftAlone)
{
    QueueMessage first = makeMessage(u"aa"_s);
    first.url = holding.url();
    givenMessage(first);
    givenMessageFor(u"bb"_s);
    service.answer(accepted);
    QProcess &watch = givenWatch();
    holding.takeRequest();
    ASSERT_EQ(::kill(static_cast<pid_t>(watch.processId()), GetParam()), 0);
    holding.answer(accepted);
    ASSERT_TRUE(watch.waitForFinished());
    EXPECT_EQ(watch.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(watch.exitCode(), 0);
    EXPECT_EQ(stateOf(u"aa"_s), u"delivered"_s);
    EXPECT_EQ(stateOf(u"bb"_s), u"pending"_s);
    EXPECT_TRUE(sent().isEmpty());
}

class EndingOnceTest : public SendingTest, public testing::WithParamInterface<QStringList>
{
public:
    HoldingServer holding;
};

TEST_P(EndingOnceTest, ADeliveryThatIsEndedIsNotAllDone)
{
    QueueMessage first = makeMessage(u"aa"_s);
    first.url = holding.url();
    givenMessage(first);
    givenMessageFor(u"bb"_s);
    QProcess &delivery = givenRunning(GetParam());
    holding.takeRequest();
    ASSERT_EQ(::kill(static_cast<pid_t>(delivery.processId()), SIGTERM), 0);
    holding.answer(accepted);
    ASSERT_TRUE(delivery.waitForFinished());
    EXPECT_EQ(delivery.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(delivery.exitCode(), 1);
    EXPECT_TRUE(delivery.readAllStandardError().contains("was asked to end"));
    EXPECT_EQ(stateOf(u"aa"_s), u"delivered"_s);
    EXPECT_EQ(stateOf(u"bb"_s), u"pending"_s);
    EXPECT_TRUE(sent().isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Commands, EndingOnceTest,
    testing::Values(QStringList{u"deliver"_s}, QStringList{u"deliver"_s, u"--json"_s},
        QStringList{u"watch"_s, u"--once"_s}));

INSTANTIATE_TEST_SUITE_P(Signals, EndingTest, testing::Values(SIGTERM, SIGINT));

TEST_F(SendingTest, WatchOnceIsOnePass)
{
    service.answer(accepted);
    whenAsked({u"watch"_s, u"--once"_s});
    EXPECT_EQ(status, 0);
    EXPECT_EQ(output, "");
    givenMessageFor(u"aa"_s);
    whenAsked({u"watch"_s, u"--once"_s});
    EXPECT_EQ(status, 0) << errors.toStdString();
    EXPECT_EQ(stateOf(u"aa"_s), u"delivered"_s);
}

TEST_F(SendingTest, TwoWatchesDeliverEachMessageOnce)
{
    constexpr int count = 40;
    service.answer(accepted);
    QProcess &first = givenWatch();
    QProcess &second = givenWatch();
    for (int number = 0; number < count; ++number)
        givenMessageFor(u"id-%1"_s.arg(number));
    while (sent().size() < count)
        std::this_thread::yield();
    EXPECT_EQ(whenSignalled(first, SIGTERM), 0);
    EXPECT_EQ(whenSignalled(second, SIGTERM), 0);
    QList<QByteArray> bodies = sent();
    EXPECT_EQ(bodies.size(), count);
    std::sort(bodies.begin(), bodies.end());
    EXPECT_EQ(std::unique(bodies.begin(), bodies.end()), bodies.end());
    for (int number = 0; number < count; ++number)
        EXPECT_EQ(message(u"id-%1"_s.arg(number)).attempts, 1);
}

TEST_F(SendingTest, WatchGoesOnWithADamagedQueue)
{
    givenFile(u"state/queue/queue.sqlite"_s, "no database");
    service.answer(accepted);
    QProcess &watch = givenWatch();
    givenMessageFor(u"aa"_s);
    EXPECT_EQ(nextLine(watch), "delivered 1, refused 0, failed 0, parked 0; waiting 0\n");
    EXPECT_EQ(whenSignalled(watch, SIGTERM), 0);
}

TEST_F(SendingTest, AnUnusableStateFolderEndsTheStart)
{
    whenStarted({u"queue"_s, u"watch"_s, u"--state"_s, path(u"wrong"_s)});
    thenFails(3, u"korvel-till: "_s + path(u"wrong"_s));
}

TEST_F(SendingTest, MetricsAreTextOfTheQueue)
{
    givenMessageFor(u"aa"_s);
    whenAsked({u"metrics"_s});
    EXPECT_EQ(status, 0);
    EXPECT_TRUE(output.contains("korvel_queue_messages{state=\"pending\"} 1\n"));
    EXPECT_TRUE(output.endsWith("# EOF\n"));
    EXPECT_EQ(whenAskedForJson({u"metrics"_s})["counts"]["pending"], 1);
    EXPECT_EQ(status, 0);
}

} // namespace

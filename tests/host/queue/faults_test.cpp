// What deliverers promise, each promise also tried on deliverers that break it: a test that such a
// one passes would say nothing.

#include "tests/host/queue/queuefixture.h"
#include "tests/support/printers.h"
#include "tests/support/scriptedserver.h"

#include <QHash>
#include <QProcess>

#include <gtest/gtest.h>

#include <array>
#include <thread>
#include <vector>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString sound{};
const QString deferred = u"deferred"_s;
const QString neverAgain = u"never-again"_s;

constexpr int deliverers = 4;

class FaultsTest : public testing::Test, public QueueFixture
{
protected:
    void givenMessages(int count)
    {
        for (int number = 0; number < count; ++number)
            queue()->enqueue(u"loyalty"_s,
                {{u"url"_s, service.url().toString()}, {u"body"_s, QString::number(number)}}, {});
    }
    /// A deliverer of its own, with that fault.
    std::unique_ptr<QProcess> startDelivering(const QString &fault)
    {
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"QUEUE_FAULT"_s, fault);
        environment.insert(u"LD_PRELOAD"_s, QStringLiteral(FAULTY_DATABASE));
        // The address sanitizer wants to be loaded before anything else, and says so by ending.
        environment.insert(u"ASAN_OPTIONS"_s,
            environment.value(u"ASAN_OPTIONS"_s) + u":verify_asan_link_order=0"_s);
        auto worker = std::make_unique<QProcess>();
        worker->setProcessEnvironment(environment);
        worker->start(QStringLiteral(QUEUE_WORKER), {u"deliver"_s, stateFolder()});
        EXPECT_TRUE(worker->waitForStarted(-1));
        return worker;
    }
    /// What a deliverer complained of that did not come to its end; otherwise nothing.
    static QStringList failureOf(QProcess &worker)
    {
        if (worker.waitForFinished(-1) && worker.exitStatus() == QProcess::NormalExit)
            return {};
        return {u"failed: "_s + QString::fromUtf8(worker.readAllStandardError())};
    }
    /// How many copies of each message the service has seen.
    [[nodiscard]] QHash<QByteArray, int> seen() const
    {
        QHash<QByteArray, int> copies;
        for (const auto &request : service.requests())
            ++copies[request.body];
        return copies;
    }

    /// What is wrong behind deliverers that share a queue. Each till's messages go to a service of
    /// their own, so that no service makes the deliverers wait for each other.
    QString wrongBehindMany(const QString &fault)
    {
        constexpr int messages = 200;
        std::array<ScriptedServer, deliverers> services;
        for (ScriptedServer &each : services)
            each.answer("<ok/>");
        givenMessages(messages);
        for (int lane = 0; lane < deliverers; ++lane)
            ask(u"UPDATE messages SET lane = ?, url = ? WHERE number % ? = ?"_s,
                {lane, services.at(static_cast<size_t>(lane)).url().toString(), deliverers, lane});
        std::vector<std::unique_ptr<QProcess>> workers;
        for (int started = 0; started < deliverers; ++started)
            workers.push_back(startDelivering(fault));
        QStringList wrong;
        for (const auto &worker : workers)
            wrong += failureOf(*worker);
        QHash<QByteArray, int> copies;
        for (const ScriptedServer &each : services)
            for (const auto &request : each.requests())
                ++copies[request.body];
        for (int number = 0; number < messages; ++number)
            if (copies.value(QByteArray::number(number)) != 1)
                wrong.append(u"copies of message %1"_s.arg(number));
        return wrong.join(u'\n');
    }

    /// What is wrong behind a deliverer whose first two exchanges brought no answer.
    QString wrongBehindLostAnswers(const QString &fault)
    {
        constexpr int messages = 4;
        service.answerRaw({});
        service.answerRaw({});
        service.answer("<ok/>");
        givenMessages(messages);
        QStringList wrong = failureOf(*startDelivering(fault));
        const auto copies = seen();
        for (int number = 0; number < messages; ++number)
            if (copies.value(QByteArray::number(number)) != (number < 2 ? 2 : 1))
                wrong.append(u"copies of message %1"_s.arg(number));
        return wrong.join(u'\n');
    }

    /// What is wrong behind a deliverer that follows one which was killed during an exchange.
    QString wrongBehindAKill(const QString &fault)
    {
        service.answerNever();
        service.answer("<ok/>");
        givenMessages(1);
        const auto killed = startDelivering(sound);
        while (service.requests().isEmpty() && killed->state() == QProcess::Running)
            std::this_thread::yield();
        killed->kill();
        killed->waitForFinished(-1);
        EXPECT_EQ(failureOf(*startDelivering(fault)), QStringList());
        return service.requests().size() == 2 ? QString() : u"was dropped"_s;
    }

    ScriptedServer service;
};

TEST_F(FaultsTest, ManyDeliverersSendEachMessageOnce)
{
    EXPECT_EQ(wrongBehindMany(sound), QString());
}

TEST_F(FaultsTest, ThoseWhoseTransactionsBeginWithoutTheFileAreFound)
{
    EXPECT_NE(wrongBehindMany(deferred), QString());
}

TEST_F(FaultsTest, WhatBroughtNoAnswerIsSentAgain)
{
    EXPECT_EQ(wrongBehindLostAnswers(sound), QString());
}

TEST_F(FaultsTest, WhoNeverSendsAgainIsFoundByLostAnswers)
{
    EXPECT_NE(wrongBehindLostAnswers(neverAgain), QString());
}

TEST_F(FaultsTest, WhatAKilledDelivererHadOnItsWayIsSentAgain)
{
    EXPECT_EQ(wrongBehindAKill(sound), QString());
}

TEST_F(FaultsTest, WhoNeverSendsAgainIsFoundByAKill)
{
    EXPECT_NE(wrongBehindAKill(neverAgain), QString());
}

} // namespace

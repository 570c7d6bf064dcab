// Enqueuing and delivering processes are killed at random moments: what was kept is delivered, no
// oftener than attempts were counted.

#include "host/queue/queueoffice.h"
#include "host/storage/statefolder.h"
#include "tests/host/queue/queueengine.h"
#include "tests/host/queue/queuefixture.h"
#include "tests/support/scriptedserver.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QProcess>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numeric>
#include <random>
#include <thread>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kills = KILLS;

class KillsTest : public testing::Test, public QueueFixture
{
protected:
    KillsTest()
    {
        // Real exchanges with a real service.
        MockFactory<RestClient>::setCreator({});
        service.answer("<ok/>");
        queue()->open();
    }

    static std::unique_ptr<QProcess> startWorker(const QStringList &words)
    {
        auto worker = std::make_unique<QProcess>();
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"QUEUE_DATABASE"_s, queueengine::setting());
        worker->setProcessEnvironment(environment);
        worker->start(QStringLiteral(QUEUE_WORKER), words);
        EXPECT_TRUE(worker->waitForStarted(-1));
        return worker;
    }
    std::unique_ptr<QProcess> startEnqueuing(int first, int count)
    {
        return startWorker({u"enqueue"_s, stateFolder(), QString::number(first),
            QString::number(count), u"3000"_s, service.url().toString()});
    }
    std::unique_ptr<QProcess> startDelivering()
    {
        return startWorker({u"deliver"_s, stateFolder()});
    }
    static void end(QProcess &worker)
    {
        const qint64 process = worker.processId();
        worker.kill();
        worker.waitForFinished(-1);
        queueengine::endLeases(process);
    }
    /// Numbers of the messages that the worker said were kept.
    static QList<int> acknowledged(QProcess &worker)
    {
        QList<int> numbers;
        for (const QByteArray &line : worker.readAllStandardOutput().split('\n'))
            if (!line.isEmpty())
                numbers.append(line.toInt());
        return numbers;
    }
    void givenMessages(int count)
    {
        const auto worker = startEnqueuing(0, count);
        ASSERT_TRUE(worker->waitForFinished(-1));
        ASSERT_EQ(acknowledged(*worker).size(), count);
    }

    /// How many copies of each message the service has seen, by its number.
    [[nodiscard]] QHash<int, int> seen() const
    {
        QHash<int, int> copies;
        for (const auto &request : service.requests())
            ++copies[request.body.mid(6, request.body.indexOf('"', 6) - 6).toInt()];
        return copies;
    }
    /// Numbers that the service has never seen.
    [[nodiscard]] QList<int> missing(const QList<int> &numbers) const
    {
        const auto copies = seen();
        QList<int> never;
        for (const int number : numbers)
            if (!copies.contains(number))
                never.append(number);
        return never;
    }
    /// How many deliverers were killed with each message in hand, by its number.
    [[nodiscard]] static QHash<int, int> killedInHand()
    {
        QHash<int, int> killed;
        for (const QString &row : askAll(u"SELECT (number - 1) || ' ' || deliverers_lost FROM "
                                         u"messages WHERE deliverers_lost > 0"_s))
            killed[row.section(u' ', 0, 0).toInt()] = row.section(u' ', 1).toInt();
        return killed;
    }
    /// What was killed twice with the same message in hand waits for a person.
    void whenTheRestIsDelivered()
    {
        // The first pass finds what the last kills left behind, and parks what was in hand at two.
        queue()->deliver();
        queue()->inOffice([](QueueOffice &office) {
            QStringList parked;
            for (const QueueMessage &message : office.list({{MessageState::Parked}, 0, 1000}))
                parked.append(message.id);
            return office.retry(parked);
        });
        queue()->deliver();
    }
    std::chrono::microseconds moment(int longest)
    {
        return std::chrono::microseconds(std::uniform_int_distribution<>(0, longest)(engine));
    }
    /// Waits for a moment that nothing but chance names.
    static void pass(std::chrono::microseconds time)
    {
        const auto end = std::chrono::steady_clock::now() + time;
        while (std::chrono::steady_clock::now() < end)
            std::this_thread::yield();
    }

    ScriptedServer service;
    std::mt19937 engine{std::random_device{}()};
};

TEST_F(KillsTest, WhatAKilledTillHadKeptIsDelivered)
{
    QList<int> kept;
    for (int round = 0; round < kills; ++round) {
        const auto worker = startEnqueuing(round * 100, 100);
        pass(moment(60000));
        end(*worker);
        kept += acknowledged(*worker);
    }
    const int waiting = queue()->waiting();
    EXPECT_GE(waiting, kept.size());
    EXPECT_LE(waiting, kept.size() + kills);
    whenTheRestIsDelivered();
    EXPECT_EQ(missing(kept), QList<int>());
    for (const int copies : seen())
        EXPECT_EQ(copies, 1);
}

// What was in no killed hand is sent once, although another one delivers beside: so none is in two
// hands at a time.
TEST_F(KillsTest, WhatAKilledDelivererHadInHandIsDeliveredAndAllElseOnce)
{
    constexpr int messages = kills * 40;
    givenMessages(messages);
    ask(u"UPDATE messages SET lane = number % 7"_s);
    const auto survivor = startDelivering();
    for (int round = 0; round < kills; ++round) {
        const auto worker = startDelivering();
        // Where programs start slowly the other one has delivered all of them before the last kill.
        if (!worker->waitForReadyRead(-1)) {
            EXPECT_EQ(queue()->waiting(), 0) << worker->readAllStandardError().toStdString();
            break;
        }
        pass(moment(40000));
        end(*worker);
    }
    ASSERT_TRUE(survivor->waitForFinished(-1));
    const QHash<int, int> killed = killedInHand();
    whenTheRestIsDelivered();
    EXPECT_EQ(queue()->waiting(), 0);
    const QHash<int, int> copies = seen();
    EXPECT_EQ(copies.size(), messages);
    for (auto message = copies.cbegin(); message != copies.cend(); ++message)
        EXPECT_LE(message.value(), 1 + killed.value(message.key())) << message.key();
    const auto attempts = ask(u"SELECT sum(attempts) FROM messages"_s).value(0).toLongLong();
    EXPECT_LE(service.requests().size(), attempts);
    const int hit = std::accumulate(killed.cbegin(), killed.cend(), 0);
    EXPECT_LE(hit, kills);
    RecordProperty("killed_with_a_message_in_hand", hit);
    RecordProperty(
        "copies_more_than_messages", static_cast<int>(service.requests().size()) - messages);
}

TEST_F(KillsTest, RequestThatWasOnItsWayIsSentAgain)
{
    ScriptedServer silent;
    silent.answerNever();
    silent.answer("<ok/>");
    givenMessages(1);
    ask(u"UPDATE messages SET url = ?"_s, {silent.url().toString()});
    const auto worker = startDelivering();
    while (silent.requests().isEmpty())
        std::this_thread::yield();
    end(*worker);
    EXPECT_EQ(queue()->deliver().delivered, 1);
    ASSERT_EQ(silent.requests().size(), 2);
    EXPECT_EQ(silent.requests().at(0).body, silent.requests().at(1).body);
    EXPECT_EQ(ask(u"SELECT attempts, deliverers_lost FROM messages"_s), (QVariantList{2, 1}));
}

TEST_F(KillsTest, WhoNeverSendsAgainIsFound)
{
    givenMessages(2);
    ask(u"UPDATE messages SET state = 'sending', lease_owner = 'nobody' WHERE number = 1"_s);
    ask(u"UPDATE messages SET state = 'parked' WHERE state = 'sending'"_s);
    queue()->deliver();
    EXPECT_EQ(missing({0, 1}), QList<int>{0});
}

TEST_F(KillsTest, TwoDeliverersSendEachMessageOnce)
{
    constexpr int messages = 100;
    givenMessages(messages);
    ask(u"UPDATE messages SET lane = number % 7"_s);
    const auto one = startDelivering();
    const auto other = startDelivering();
    ASSERT_TRUE(one->waitForFinished(-1));
    ASSERT_TRUE(other->waitForFinished(-1));
    EXPECT_EQ(one->exitCode(), 0);
    EXPECT_EQ(other->exitCode(), 0);
    EXPECT_EQ(seen().size(), messages);
    EXPECT_EQ(service.requests().size(), messages);
    EXPECT_EQ(ask(u"SELECT max(attempts) FROM messages"_s), QVariantList{1});
}

TEST_F(KillsTest, TwoTillsEnqueueIntoOneQueue)
{
    const auto one = startEnqueuing(0, 100);
    const auto other = startEnqueuing(100, 100);
    ASSERT_TRUE(one->waitForFinished(-1));
    ASSERT_TRUE(other->waitForFinished(-1));
    EXPECT_EQ(acknowledged(*one).size() + acknowledged(*other).size(), 200);
    EXPECT_EQ(QFileInfo(databaseFile() + u".spill"_s).size(), 0);
    EXPECT_EQ(queue()->waiting(), 200);
}

} // namespace

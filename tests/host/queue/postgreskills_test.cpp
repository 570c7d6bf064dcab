// A till that moves its backlog to the shared queue is killed at random moments: each message is
// there once, in order.

#include "tests/host/queue/queueengine.h"
#include "tests/host/queue/queuefixture.h"

#include <QProcess>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>
#include <thread>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kills = KILLS;

class PostgresKillsTest : public testing::Test, public QueueFixture
{
protected:
    /// What waits in this till's own file; the texts are numbers from 0 on.
    QStringList givenBacklog(int count)
    {
        MessageStore local(databaseFile());
        QStringList numbers;
        QList<QueueMessage> messages;
        for (int number = 0; number < count; ++number) {
            QueueMessage message;
            message.id = QString::number(number);
            message.body = message.id.toUtf8();
            message.lane = u"1-1"_s;
            message.enqueued = QDateTime::currentDateTimeUtc();
            message.nextAttempt = message.enqueued;
            messages.append(message);
            numbers.append(message.id);
        }
        local.takeIn(messages);
        return numbers;
    }
    [[nodiscard]] std::unique_ptr<QProcess> startMoving() const
    {
        auto worker = std::make_unique<QProcess>();
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"QUEUE_DATABASE"_s, queueengine::setting());
        worker->setProcessEnvironment(environment);
        worker->start(QStringLiteral(QUEUE_WORKER), {u"move"_s, stateFolder()});
        EXPECT_TRUE(worker->waitForReadyRead(-1));
        return worker;
    }
    /// The first message that is still in the file; none: all have moved.
    static QStringList firstHere()
    {
        MessageStore local(databaseFile());
        QSqlQuery first
            = local.database().run(u"SELECT id FROM messages ORDER BY number LIMIT 1"_s);
        return first.next() ? QStringList{first.value(0).toString()} : QStringList();
    }
    /// Waits for a moment that nothing but chance names.
    void pass()
    {
        const std::chrono::microseconds time(std::uniform_int_distribution<>(0, 100000)(m_engine));
        const auto end = std::chrono::steady_clock::now() + time;
        while (std::chrono::steady_clock::now() < end)
            std::this_thread::yield();
    }

private:
    std::mt19937 m_engine{std::random_device{}()};
};

TEST_F(PostgresKillsTest, BacklogOfAKilledTillIsInTheSharedQueueOnceAndInOrder)
{
    { // Makes the tables.
        const auto store = queueengine::openStore();
    }
    const QStringList numbers = givenBacklog(kills * 40);
    int foundTwice = 0;
    for (int round = 0; round < kills; ++round) {
        const auto worker = startMoving();
        pass();
        const qint64 process = worker->processId();
        worker->kill();
        worker->waitForFinished(-1);
        queueengine::endLeases(process);
        const QStringList there = askAll(u"SELECT id FROM messages ORDER BY number DESC LIMIT 1"_s);
        const QStringList here = firstHere();
        foundTwice
            += !there.isEmpty() && !here.isEmpty() && there.first().toInt() >= here.first().toInt();
    }
    RecordProperty("killed_between_there_and_here", foundTwice);
    ASSERT_TRUE(startMoving()->waitForFinished(-1));
    EXPECT_EQ(MessageStore(databaseFile()).waiting(), 0);
    EXPECT_EQ(askAll(u"SELECT id FROM messages ORDER BY number"_s), numbers);
    whenDelivered();
    EXPECT_EQ(sentBodies(), numbers);
}

} // namespace

// A queue on a server: its tables, its locks, and what is said when it cannot be reached.

#include "host/queue/leaseowner.h"
#include "host/queue/queueerror.h"
#include "host/queue/queueoffice.h"
#include "host/queue/server/queueserver.h"
#include "tests/host/queue/postgresserver.h"
#include "tests/host/queue/queueengine.h"
#include "tests/host/queue/queuefixture.h"
#include "tests/support/logcapture.h"
#include "tests/support/scriptedserver.h"

#include <QSet>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <thread>

using namespace Qt::Literals::StringLiterals;

namespace {

const QDateTime noon(QDate(2024, 11, 21), QTime(12, 0), Qt::UTC);

QueueMessage messageOfLane(const QString &id, const QString &lane)
{
    QueueMessage message;
    message.id = id;
    message.lane = lane;
    message.enqueued = noon;
    message.nextAttempt = noon;
    return message;
}

class PostgresTest : public testing::Test, public QueueFixture
{
protected:
    static QString errorOf(const QString &address)
    {
        try {
            const QueueServer server(ServerAddress::read(address));
        } catch (const StorageError &error) {
            return QString::fromUtf8(error.what());
        }
        return {};
    }
    /// What a sale puts into this machine's own file.
    int keptHere()
    {
        Singleton<DBQueueBroker>::reset();
        givenMessage(u"one"_s);
        return MessageStore(databaseFile()).waiting();
    }
};

TEST_F(PostgresTest, TablesAreMadeOnceByManyAtOnce)
{
    std::atomic<int> made{0};
    {
        std::array<std::jthread, 6> programs;
        for (std::jthread &program : programs)
            program = std::jthread([&made] {
                const auto store = queueengine::openStore();
                store->append(messageOfLane(QUuid::createUuid().toString(), u"1"_s));
                ++made;
            });
    }
    EXPECT_EQ(made, 6);
    EXPECT_EQ(ask(u"SELECT count(*) FROM messages"_s), QVariantList{6});
    EXPECT_EQ(ask(u"SELECT value FROM facts WHERE name = 'layout'"_s), QVariantList{u"2"_s});
}

TEST_F(PostgresTest, TablesOfANewerVersionAreLeftAlone)
{
    queue()->open();
    ask(u"UPDATE facts SET value = '3' WHERE name = 'oldest_layout_that_copes'"_s);
    EXPECT_TRUE(
        errorOf(queueengine::setting()).contains(u"более новой версией (3, эта знает 2)"_s));
    EXPECT_EQ(keptHere(), 1);
}

TEST_F(PostgresTest, TablesOfANewerVersionThatThisOneCopesWithAreUsed)
{
    queue()->open();
    ask(u"UPDATE facts SET value = '3' WHERE name = 'layout'"_s);
    EXPECT_EQ(errorOf(queueengine::setting()), QString());
}

TEST_F(PostgresTest, TablesOfAnOlderVersionAreLeftAlone)
{
    queue()->open();
    ask(u"UPDATE facts SET value = '1' WHERE name = 'layout'"_s);
    EXPECT_TRUE(errorOf(queueengine::setting())
                    .contains(u"более старой версии (1, этой нужна 2); укажите"_s));
    EXPECT_EQ(keptHere(), 1);
}

TEST_F(PostgresTest, TablesOfAnotherProgramAreLeftAlone)
{
    ask(u"CREATE TABLE messages (text TEXT)"_s);
    EXPECT_TRUE(errorOf(queueengine::setting()).contains(u"таблица «messages» другой программы"_s));
    EXPECT_EQ(ask(u"SELECT count(*) FROM pg_tables WHERE tablename = 'facts'"_s), QVariantList{0});
    EXPECT_EQ(keptHere(), 1);
}

TEST_F(PostgresTest, CommitsAreSyncedWhateverIsUsualForTheUser)
{
    ask(u"ALTER ROLE till SET synchronous_commit = off"_s);
    const auto store = queueengine::openStore();
    ask(u"ALTER ROLE till RESET synchronous_commit"_s);
    QSqlQuery shown = store->database().run(u"SHOW synchronous_commit"_s);
    ASSERT_TRUE(shown.next());
    EXPECT_EQ(shown.value(0).toString(), u"on"_s);
}

TEST_F(PostgresTest, ServerThatDoesNotSyncIsRefused)
{
    const auto whenSyncing = [](const QString &syncing) {
        ask(u"ALTER SYSTEM SET fsync = "_s + syncing);
        ask(u"SELECT pg_reload_conf()"_s);
        while (ask(u"SHOW fsync"_s) != QVariantList{syncing}) { }
    };
    whenSyncing(u"off"_s);
    EXPECT_TRUE(errorOf(queueengine::setting()).contains(u"fsync = off, а нужно on"_s));
    EXPECT_EQ(keptHere(), 1);
    whenSyncing(u"on"_s);
}

TEST_F(PostgresTest, ServerItselfEndsWhatTakesTooLong)
{
    const auto store = queueengine::openStore();
    const auto shown = [&store](const QString &setting) {
        QSqlQuery row = store->database().run(u"SHOW "_s + setting);
        return row.next() ? row.value(0).toString() : QString();
    };
    EXPECT_EQ(shown(u"statement_timeout"_s), u"2s"_s);
    EXPECT_EQ(shown(u"idle_in_transaction_session_timeout"_s), u"10s"_s);
}

TEST_F(PostgresTest, WhatTheServerSaysUnaskedGoesToTheLogAndNotToTheTerminal)
{
    const LogCapture log(u"poshost.queue"_s);
    const auto store = queueengine::openStore();
    testing::internal::CaptureStderr();
    store->database().run(u"DO $$ BEGIN RAISE WARNING 'tired'; END $$"_s);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_TRUE(log.has(u"INFO"_s, u"the queue's server says: WARNING: tired"_s));
}

TEST_F(PostgresTest, DatabaseThatCannotHoldEveryLanguageIsRefused)
{
    ask(u"DROP DATABASE IF EXISTS latin"_s);
    ask(u"CREATE DATABASE latin ENCODING 'LATIN1' LOCALE 'C' TEMPLATE template0"_s);
    const QString error = errorOf(queueengine::setting().replace(u"/postgres"_s, u"/latin"_s));
    EXPECT_TRUE(error.contains(u"server_encoding = LATIN1, а нужно UTF8"_s));
}

TEST_F(PostgresTest, ReachedThroughItsSocket)
{
    EXPECT_EQ(errorOf(PostgresServer::instance()->socketUrl()), QString());
}

TEST_F(PostgresTest, TextsOfAnyKindAreKept)
{
    QueueMessage message = messageOfLane(u"a"_s, u"1'; DROP TABLE messages; --"_s);
    message.remark = u"Ёж\\ 'quoted' \"too\" $1 %1 ? end"_s;
    message.body = QByteArray("\0\\'\xff body", 10);
    const auto store = queueengine::openStore();
    store->append(message);
    QueueOffice office(*store);
    const QueueMessage kept = office.find(u"a"_s).value(0);
    EXPECT_EQ(kept.remark, message.remark);
    EXPECT_EQ(kept.lane, message.lane);
    EXPECT_EQ(kept.body, message.body);
}

TEST_F(PostgresTest, CharacterThatTheServerCannotStoreIsLeftOut)
{
    QueueMessage message = messageOfLane(u"a"_s, u"1"_s);
    message.remark = u"be"_s + QChar(u'\0') + u"fore"_s;
    queueengine::openStore()->append(message);
    EXPECT_EQ(ask(u"SELECT remark FROM messages"_s), QVariantList{u"before"_s});
}

TEST_F(PostgresTest, LeaseEndsByTheServersClock)
{
    const auto one = queueengine::openStore();
    const auto other = queueengine::openStore();
    one->append(messageOfLane(u"a"_s, u"1"_s));
    ASSERT_TRUE(one->checkOut({noon}).message);
    // A deliverer whose clock is ahead by a year takes nothing that is in hand.
    EXPECT_FALSE(other->checkOut({QDateTime::currentDateTimeUtc().addYears(1)}).message);
    const QString inTwoMinutes
        = u"SELECT lease_until > to_char((now() + interval '%1 s') "
          u"AT TIME ZONE 'UTC', 'YYYY-MM-DD\"T\"HH24:MI:SS') FROM messages"_s;
    EXPECT_EQ(ask(inTwoMinutes.arg(60)), QVariantList{true});
    EXPECT_EQ(ask(inTwoMinutes.arg(130)), QVariantList{false});
    queueengine::endLeases();
    EXPECT_TRUE(other->checkOut({noon}).message);
}

TEST_F(PostgresTest, ProcessesOfThisMachineSayNothingOfTheirNamesakes)
{
    const auto one = queueengine::openStore();
    one->append(messageOfLane(u"a"_s, u"1"_s));
    ASSERT_TRUE(one->checkOut({noon}).message);
    QString ended = leaseowner::makeName();
    ended.replace(u" started "_s, u" started 1"_s);
    ask(u"UPDATE messages SET lease_owner = ?"_s, {ended});
    EXPECT_FALSE(queueengine::openStore()->checkOut({noon}).message);
}

TEST_F(PostgresTest, MessageBehindOneThatIsLockedIsNotSentBeforeIt)
{
    const auto store = queueengine::openStore();
    store->append(messageOfLane(u"a"_s, u"1"_s));
    store->append(messageOfLane(u"b"_s, u"1"_s));
    store->append(messageOfLane(u"c"_s, u"2"_s));
    QueueDatabase person(ServerAddress::read(queueengine::setting()));
    QueueTransaction changing(person);
    person.run(u"UPDATE messages SET remark = 'looked at' WHERE id = 'a'"_s);
    const auto taken = store->checkOut({noon}).message;
    ASSERT_TRUE(taken);
    EXPECT_EQ(taken->id, u"c"_s);
}

TEST_F(PostgresTest, LaneThatAnotherOneIsTakingIsPassedOver)
{
    const auto store = queueengine::openStore();
    store->append(messageOfLane(u"a"_s, u"1"_s));
    store->append(messageOfLane(u"b"_s, u"2"_s));
    QueueDatabase other(ServerAddress::read(queueengine::setting()));
    const QueueTransaction taking(other);
    other.run(u"SELECT pg_advisory_xact_lock(1802662508, hashtext('1'))"_s);
    const auto taken = store->checkOut({noon}).message;
    ASSERT_TRUE(taken);
    EXPECT_EQ(taken->id, u"b"_s);
}

// Between the look at what is in hand and the choice another deliverer takes a message of the lane.
TEST_F(PostgresTest, LaneThatWasTakenSinceTheLookIsPassedOver)
{
    const auto store = queueengine::openStore();
    for (const auto &[id, lane] : {std::pair{u"a"_s, u"1"_s}, {u"b"_s, u"1"_s}, {u"x"_s, u"2"_s}})
        store->append(messageOfLane(id, lane));
    ask(u"UPDATE messages SET state = 'sending', lease_owner = 'ended' WHERE id = 'x'"_s);
    QueueDatabase person(ServerAddress::read(queueengine::setting()));
    QueueTransaction changing(person);
    person.run(u"UPDATE messages SET remark = 'looked at' WHERE id = 'x'"_s);
    QString taken;
    {
        const std::jthread taking([&taken] {
            const auto own = queueengine::openStore();
            if (const auto message = own->checkOut({noon}).message)
                taken = message->id;
        });
        // It has looked, and waits to take back what is in no hand any more.
        while (ask(u"SELECT count(*) FROM pg_stat_activity WHERE wait_event_type = 'Lock'"_s)
            != QVariantList{1}) { }
        ask(u"UPDATE messages SET state = 'sending', lease_owner = 'another', "
            u"lease_until = '2999-01-01T00:00:00.000Z' WHERE id = 'a'"_s);
        changing.commit();
    }
    EXPECT_EQ(taken, u"x"_s);
}

// A plan for whatever values goes through all that waits to the few that are due.
TEST_F(PostgresTest, ChoiceOfAMessageIsPlannedEachTime)
{
    const auto store = queueengine::openStore();
    store->append(messageOfLane(u"a"_s, u"1"_s));
    for (const bool dueOnly : {false, true})
        EXPECT_TRUE(store->checkOut({noon, 0, dueOnly}).message);
    QSqlQuery kept = store->database().run(
        u"SELECT count(*), count(*) FILTER (WHERE statement LIKE '%LIMIT 1 FOR UPDATE%') FROM "
        u"pg_prepared_statements"_s);
    ASSERT_TRUE(kept.next());
    EXPECT_GT(kept.value(0).toInt(), 0);
    EXPECT_EQ(kept.value(1).toInt(), 0);
}

TEST_F(PostgresTest, OutcomeWaitsForNoFactThatAnotherOneNotes)
{
    const auto store = queueengine::openStore();
    store->append(messageOfLane(u"a"_s, u"1"_s));
    auto message = store->checkOut({noon}).message;
    ASSERT_TRUE(message);
    QueueDatabase other(ServerAddress::read(queueengine::setting()));
    const QueueTransaction noting(other);
    other.run(u"UPDATE facts SET value = 'another' WHERE name = 'last_error'"_s);
    message->state = MessageState::Pending;
    EXPECT_NO_THROW(store->settle(*message));
    EXPECT_EQ(ask(u"SELECT state FROM messages"_s), QVariantList{u"pending"_s});
}

TEST_F(PostgresTest, MachineThatReachesNothingHoldsNoOtherBack)
{
    const auto store = queueengine::openStore();
    store->hold(3, QDateTime::currentDateTimeUtc().addSecs(300));
    EXPECT_TRUE(store->heldUntil().isValid());
    EXPECT_EQ(ask(u"SELECT name FROM facts WHERE name LIKE 'held_until%'"_s),
        QVariantList{QString(u"held_until "_s + QSysInfo::machineHostName())});
    ask(u"UPDATE facts SET name = name || ' of another' WHERE name LIKE 'held_until%'"_s);
    EXPECT_FALSE(store->heldUntil().isValid());
    store->release();
    EXPECT_EQ(ask(u"SELECT value FROM facts WHERE name LIKE 'held_until%another'"_s),
        QVariantList{u""_s});
}

TEST_F(PostgresTest, CountsAreSummedByEveryPass)
{
    for (int message = 0; message < 5; ++message)
        givenMessage(QString::number(message));
    EXPECT_GT(ask(u"SELECT count(*) FROM counts"_s).value(0).toInt(), 5);
    whenDelivered();
    EXPECT_EQ(ask(u"SELECT count(*) FROM counts"_s), QVariantList{5});
    EXPECT_EQ(ask(u"SELECT messages FROM counts WHERE state = 'delivered'"_s), QVariantList{5});
    EXPECT_EQ(queue()->waiting(), 0);
}

TEST_F(PostgresTest, ManyCountsAreSummedStepByStep)
{
    givenMessage(u"one"_s);
    ask(u"INSERT INTO counts SELECT 'parked', 1 FROM generate_series(1, 25000)"_s);
    whenDelivered();
    const int left = ask(u"SELECT count(*) FROM counts"_s).value(0).toInt();
    EXPECT_LT(left, 16000);
    EXPECT_GT(left, 14000);
    whenDelivered();
    whenDelivered();
    EXPECT_EQ(ask(u"SELECT count(*) FROM counts"_s), QVariantList{5});
    EXPECT_EQ(ask(u"SELECT messages FROM counts WHERE state = 'parked'"_s), QVariantList{25000});
}

TEST_F(PostgresTest, CountsOfALongPassAreSummedOnTheWay)
{
    const auto store = queueengine::openStore();
    QList<QueueMessage> messages;
    for (int number = 0; number <= MessageStore::settledBetweenSums; ++number)
        messages.append(messageOfLane(QString::number(number), u"1"_s));
    store->takeIn(messages);
    auto next = store->checkOut({noon}).message;
    for (int number = 0; number < MessageStore::settledBetweenSums; ++number) {
        ASSERT_TRUE(next);
        next->state = MessageState::Delivered;
        next = store->settleAndCheckOut(*next, {noon}).message;
    }
    EXPECT_EQ(ask(u"SELECT count(*) FROM counts"_s), QVariantList{5});
}

TEST_F(PostgresTest, AttemptIsCommittedBeforeTheRequestAndNoTransactionIsOpen)
{
    givenMessage(u"one"_s);
    QVariantList counted;
    QVariantList open;
    givenDuringExchange([&counted, &open] {
        counted = ask(u"SELECT state, attempts FROM messages"_s);
        open = ask(u"SELECT count(*), count(*) FILTER (WHERE state <> 'idle') FROM "
                   u"pg_stat_activity WHERE application_name LIKE 'korvel-queue-%'"_s);
    });
    whenDelivered();
    EXPECT_EQ(counted, (QVariantList{u"sending"_s, 1}));
    EXPECT_EQ(open, (QVariantList{1, 0}));
}

// What one thread is given of each lane, while others work beside it.
TEST_F(PostgresTest, LanesGoOneAtATimeAndInOrderWhoeverTakesThem)
{
    constexpr int lanes = 5;
    constexpr int messages = 300;
    constexpr int deliverers = 4;
    {
        const auto store = queueengine::openStore();
        for (int number = 0; number < messages; ++number)
            store->append(messageOfLane(QString::number(number), QString::number(number % lanes)));
    }
    std::array<std::atomic<int>, lanes> inHand{};
    std::array<std::atomic<int>, lanes> last{};
    for (auto &number : last)
        number = -1;
    std::atomic<int> taken{0};
    std::atomic<int> wrong{0};
    {
        std::array<std::jthread, deliverers> threads;
        for (std::jthread &thread : threads)
            thread = std::jthread([&] {
                const auto store = queueengine::openStore();
                auto next = store->checkOut({noon}).message;
                while (taken < messages) {
                    if (!next) {
                        next = store->checkOut({noon}).message;
                        continue;
                    }
                    const auto lane = next->lane.toUInt();
                    const int number = next->id.toInt();
                    wrong += ++inHand.at(lane) == 1 ? 0 : 1;
                    wrong += last.at(lane).exchange(number) == number - lanes || number < lanes ? 0
                                                                                                : 1;
                    ++taken;
                    --inHand.at(lane);
                    next->state = MessageState::Delivered;
                    next->settled = noon;
                    next = store->settleAndCheckOut(*next, {noon}).message;
                }
            });
    }
    EXPECT_EQ(wrong, 0);
    EXPECT_EQ(taken, messages);
    EXPECT_EQ(ask(u"SELECT count(*), max(attempts) FROM messages WHERE state = 'delivered'"_s),
        (QVariantList{messages, 1}));
    EXPECT_EQ(queue()->waiting(), 0);
}

TEST_F(PostgresTest, AThousandMessagesOfFourTillsByTwoDeliverers)
{
    ScriptedServer service;
    service.answer("<ok/>");
    const auto start = [this](const QStringList &words) {
        auto worker = std::make_unique<QProcess>();
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"QUEUE_DATABASE"_s, queueengine::setting());
        worker->setProcessEnvironment(environment);
        worker->start(QStringLiteral(QUEUE_WORKER), words);
        return worker;
    };
    std::vector<std::unique_ptr<QProcess>> workers;
    for (int till = 0; till < 4; ++till)
        workers.push_back(start({u"enqueue"_s, stateFolder() + QString::number(till),
            QString::number(till * 250), u"250"_s, u"300"_s, service.url().toString()}));
    for (int deliverer = 0; deliverer < 2; ++deliverer)
        workers.push_back(start({u"deliver"_s, stateFolder() + u'd' + QString::number(deliverer)}));
    for (const auto &worker : workers) {
        ASSERT_TRUE(worker->waitForFinished(-1));
        EXPECT_EQ(worker->exitCode(), 0) << worker->readAllStandardError().constData();
    }
    MockFactory<RestClient>::setCreator({});
    queue()->deliver();
    QSet<QByteArray> bodies;
    for (const auto &request : service.requests())
        bodies.insert(request.body);
    EXPECT_EQ(bodies.size(), 1000);
    EXPECT_EQ(service.requests().size(), 1000);
    EXPECT_EQ(ask(u"SELECT count(*) FROM messages WHERE state = 'delivered' AND attempts = 1"_s),
        QVariantList{1000});
}

struct UnreachedCase
{
    const char *name;
    const char *replaced;
    const char *by;
    const char *said;
};

class UnreachedTest : public PostgresTest, public testing::WithParamInterface<UnreachedCase>
{ };

TEST_P(UnreachedTest, IsSaidInOneLineWithoutThePassword)
{
    const LogCapture log(u"poshost.queue"_s);
    const auto [name, replaced, by, said] = GetParam();
    QString address = queueengine::setting();
    ASSERT_TRUE(address.contains(QString::fromUtf8(replaced)));
    address.replace(QString::fromUtf8(replaced), QString::fromUtf8(by));
    const QString error = errorOf(address);
    EXPECT_TRUE(error.startsWith(u"postgresql://"_s)) << error.toStdString();
    EXPECT_TRUE(error.contains(u"«Queue:database»"_s));
    EXPECT_TRUE(error.contains(QString::fromUtf8(said))) << error.toStdString();
    EXPECT_FALSE(error.contains(u'\n'));
    givenSetting(u"Queue:database"_s, address);
    EXPECT_EQ(keptHere(), 1);
    for (const QString &text : {error, log.lines().join(u'\n')})
        for (const QString &secret : {u"p@ss"_s, u"p%40ss"_s, u"s3cret"_s})
            EXPECT_FALSE(text.contains(secret)) << text.toStdString();
}

INSTANTIATE_TEST_SUITE_P(Ways, UnreachedTest,
    testing::Values(UnreachedCase{"password", "p%40ss", "s3cret",
                        "password authentication failed for user \"till\""},
        UnreachedCase{"host", "127.0.0.1", "no-such-host.invalid", "Could not resolve host"},
        UnreachedCase{"database", "/postgres", "/nothing", "database \"nothing\" does not exist"},
        UnreachedCase{"user", "till:", "nobody:", "password authentication failed"},
        UnreachedCase{"TLS", "/postgres", "/postgres?sslmode=require",
            "server does not support SSL, but SSL was required"}),
    [](const auto &way) { return way.param.name; });

} // namespace

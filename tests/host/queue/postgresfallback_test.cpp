// The server of a shared queue goes away and comes back: nothing is lost, doubled or out of order.

#include "host/queue/queueoffice.h"
#include "host/queue/server/queueserver.h"
#include "host/storage/filelock.h"
#include "tests/host/queue/postgresserver.h"
#include "tests/host/queue/queueengine.h"
#include "tests/host/queue/queuefixture.h"
#include "tests/support/logcapture.h"

#include <QDir>
#include <QFileInfo>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace {

class PostgresFallbackTest : public testing::Test, public QueueFixture
{
protected:
    ~PostgresFallbackTest() override
    {
        if (!m_isUp)
            givenServerBack();
    }
    Q_DISABLE_COPY_MOVE(PostgresFallbackTest)
    PostgresFallbackTest() = default;

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
    void givenMessages(const QStringList &bodies)
    {
        for (const QString &body : bodies)
            givenMessage(body);
    }
    /// What stands in the shared queue, in its order.
    static QStringList onServer()
    {
        return askAll(u"SELECT convert_from(body, 'UTF8') FROM messages ORDER BY number"_s);
    }
    static int here() { return MessageStore(databaseFile()).waiting(); }

private:
    bool m_isUp = true;
};

TEST_F(PostgresFallbackTest, MessageIsKeptHereAndMovesAtTheNextDelivery)
{
    givenServerAway();
    givenMessage(u"one"_s);
    EXPECT_EQ(here(), 1);
    EXPECT_EQ(queue()->waiting(), 1);
    givenServerBack();
    EXPECT_EQ(whenDelivered().delivered, 1);
    EXPECT_EQ(sentBodies(), QStringList{u"one"_s});
    EXPECT_EQ(here(), 0);
    EXPECT_EQ(onServer(), QStringList{u"one"_s});
}

TEST_F(PostgresFallbackTest, OrderOfATillIsThatOfEnqueueing)
{
    givenMessage(u"1"_s);
    givenServerAway();
    givenMessages({u"2"_s, u"3"_s});
    givenServerBack();
    givenMessage(u"4"_s);
    EXPECT_EQ(onServer(), (QStringList{u"1"_s, u"2"_s, u"3"_s, u"4"_s}));
    whenDelivered();
    EXPECT_EQ(sentBodies(), (QStringList{u"1"_s, u"2"_s, u"3"_s, u"4"_s}));
}

TEST_F(PostgresFallbackTest, AllOfABacklogMoves)
{
    givenServerAway();
    QStringList bodies;
    for (int number = 0; number < 50; ++number)
        bodies.append(QString::number(number));
    givenMessages(bodies);
    givenServerBack();
    EXPECT_EQ(queue()->waiting(), 50);
    EXPECT_EQ(onServer(), bodies);
    EXPECT_EQ(here(), 0);
}

TEST_F(PostgresFallbackTest, WhatWasSpilledHereMovesToo)
{
    givenServerAway();
    givenMessage(u"one"_s);
    {
        MessageStore local(databaseFile());
        const QueueTransaction locked(local.database());
        givenMessage(u"two"_s);
    }
    EXPECT_GT(QFileInfo(databaseFile() + u".spill"_s).size(), 0);
    givenServerBack();
    givenMessage(u"three"_s);
    EXPECT_EQ(onServer(), (QStringList{u"one"_s, u"two"_s, u"three"_s}));
}

TEST_F(PostgresFallbackTest, MessageThatHadArrivedAlreadyIsThereOnce)
{
    givenServerAway();
    givenMessage(u"one"_s);
    givenServerBack();
    // As a till that was killed before it took its own copy away.
    const auto copies
        = MessageStore(databaseFile()).firstMovable(1, QDateTime::currentDateTimeUtc());
    queueengine::openStore()->takeIn(copies);
    EXPECT_EQ(whenDelivered().delivered, 1);
    EXPECT_EQ(onServer().size(), 1);
    EXPECT_EQ(here(), 0);
}

TEST_F(PostgresFallbackTest, MessageThatWasDeliveredMeanwhileIsNotSentAgain)
{
    givenServerAway();
    givenMessage(u"one"_s);
    givenServerBack();
    const auto copies
        = MessageStore(databaseFile()).firstMovable(1, QDateTime::currentDateTimeUtc());
    queueengine::openStore()->takeIn(copies);
    ask(u"UPDATE messages SET state = 'delivered'"_s);
    EXPECT_EQ(whenDelivered().delivered, 0);
    EXPECT_EQ(here(), 0);
}

TEST_F(PostgresFallbackTest, WhatTheServerDoesNotTakeStaysHereUnharmed)
{
    givenServerAway();
    givenMessages({u"one"_s, u"two"_s});
    givenServerBack();
    { // Makes the tables.
        const auto store = queueengine::openStore();
    }
    ask(u"ALTER TABLE messages ADD CHECK (body <> 'two')"_s);
    givenMessage(u"three"_s);
    EXPECT_EQ(onServer(), QStringList());
    EXPECT_EQ(here(), 3);
    ask(u"ALTER TABLE messages DROP CONSTRAINT messages_body_check"_s);
    EXPECT_EQ(queue()->waiting(), 3);
    EXPECT_EQ(onServer(), (QStringList{u"one"_s, u"two"_s, u"three"_s}));
    EXPECT_EQ(QDir(stateFolder() + u"/queue"_s).entryList({u"*damaged*"_s}), QStringList());
}

TEST_F(PostgresFallbackTest, RefusedAndParkedMessagesMoveAsTheyAre)
{
    {
        MessageStore local(databaseFile());
        for (const auto state : {MessageState::Refused, MessageState::Parked}) {
            QueueMessage message;
            message.id = stateName(state);
            message.state = state;
            message.attempts = 7;
            local.append(message);
        }
    }
    queue()->open();
    EXPECT_EQ(askAll(u"SELECT id || state || attempts FROM messages ORDER BY number"_s),
        (QStringList{u"refusedrefused7"_s, u"parkedparked7"_s}));
}

TEST_F(PostgresFallbackTest, WhatWasExportedOrDeliveredHereStaysHere)
{
    {
        MessageStore local(databaseFile());
        QueueMessage message;
        message.id = u"exported"_s;
        message.state = MessageState::Parked;
        message.movedTo = u"/file"_s;
        local.append(message);
        message = {};
        message.id = u"delivered"_s;
        message.state = MessageState::Delivered;
        local.append(message);
    }
    queue()->open();
    EXPECT_EQ(onServer(), QStringList());
}

TEST_F(PostgresFallbackTest, WhatTheFileHadDeliveredIsKeptNoLongerThanUsual)
{
    {
        MessageStore local(databaseFile());
        for (const int daysAgo : {31, 29}) {
            QueueMessage message;
            message.id = QString::number(daysAgo);
            message.state = MessageState::Delivered;
            message.settled = QDateTime::currentDateTimeUtc().addDays(-daysAgo);
            local.append(message);
        }
    }
    whenDelivered();
    MessageStore local(databaseFile());
    QSqlQuery left = local.database().run(u"SELECT id FROM messages"_s);
    ASSERT_TRUE(left.next());
    EXPECT_EQ(left.value(0).toString(), u"29"_s);
    EXPECT_FALSE(left.next());
}

TEST_F(PostgresFallbackTest, WhatAnotherProgramDeliversFromTheFileDoesNotMove)
{
    const LogCapture log(u"poshost.queue"_s);
    QueueMessage message;
    message.id = u"in hand"_s;
    MessageStore local(databaseFile());
    local.append(message);
    ASSERT_TRUE(local.checkOut({QDateTime::currentDateTimeUtc()}).message);
    givenMessage(u"later"_s);
    EXPECT_EQ(onServer(), QStringList());
    EXPECT_EQ(queue()->waiting(), 2);
    EXPECT_THAT(log.lines().join(u'\n').toStdString(),
        testing::HasSubstr("ещё отправляет другая программа"));
}

TEST_F(PostgresFallbackTest, WhileAnotherProgramDeliversFromTheFileNothingMoves)
{
    MessageStore local(databaseFile());
    QueueMessage message;
    message.id = u"waits"_s;
    local.append(message);
    FileLock delivering(local.deliveryLock());
    ASSERT_TRUE(delivering.share());
    givenMessage(u"later"_s);
    EXPECT_EQ(onServer(), QStringList());
    EXPECT_EQ(here(), 2);
}

// The server takes so long for each that one step is all there is time for.
TEST_F(PostgresFallbackTest, BacklogThatIsStillMovingIsNotOvertaken)
{
    constexpr int backlog = 25;
    constexpr int oneStep = 20;
    givenServerAway();
    QStringList bodies;
    for (int number = 0; number < backlog; ++number)
        bodies.append(QString::number(number));
    givenMessages(bodies);
    givenServerBack();
    { // Makes the tables.
        const auto store = queueengine::openStore();
    }
    ask(u"CREATE FUNCTION take_long() RETURNS trigger LANGUAGE plpgsql AS "
        u"$$ BEGIN PERFORM pg_sleep(0.052); RETURN new; END $$"_s);
    ask(u"CREATE TRIGGER slow BEFORE INSERT ON messages FOR EACH ROW EXECUTE FUNCTION "
        u"take_long()"_s);
    givenMessage(u"new"_s);
    EXPECT_EQ(onServer(), bodies.first(oneStep));
    EXPECT_EQ(here(), backlog - oneStep + 1);
    ask(u"DROP TRIGGER slow ON messages"_s);
    EXPECT_EQ(queue()->waiting(), backlog + 1);
    EXPECT_EQ(onServer(), bodies + QStringList{u"new"_s});
}

TEST_F(PostgresFallbackTest, WithoutADiskMessagesGoToTheServer)
{
    queue()->open();
    Singleton<DBQueueBroker>::reset();
    QFile notAFolder(QFileInfo(databaseFile()).absolutePath());
    QDir(notAFolder.fileName()).removeRecursively();
    ASSERT_TRUE(notAFolder.open(QIODevice::WriteOnly));
    givenMessage(u"one"_s);
    EXPECT_EQ(onServer(), QStringList{u"one"_s});
    EXPECT_EQ(queue()->waiting(), 1);
}

TEST_F(PostgresFallbackTest, ConnectionThatBrokeIsMadeAnewUnnoticed)
{
    const LogCapture log(u"poshost.queue"_s);
    givenMessage(u"one"_s);
    givenServerAway();
    givenServerBack();
    givenMessage(u"two"_s);
    EXPECT_EQ(onServer(), (QStringList{u"one"_s, u"two"_s}));
    EXPECT_TRUE(log.lines().filter(u"ERROR"_s).isEmpty());
}

TEST_F(PostgresFallbackTest, ServerThatCrashesDuringAnExchangeDelaysTheMessage)
{
    givenMessages({u"one"_s, u"two"_s});
    givenDuringExchange([this] {
        givenDuringExchange({});
        PostgresServer::instance()->crash();
    });
    EXPECT_THROW(whenDelivered(), StorageError);
    givenServerBack();
    EXPECT_EQ(whenDelivered().delivered, 2);
    EXPECT_EQ(sentBodies(), (QStringList{u"one"_s, u"one"_s, u"two"_s}));
    EXPECT_EQ(
        askAll(u"SELECT attempts FROM messages ORDER BY number"_s), (QStringList{u"2"_s, u"1"_s}));
    EXPECT_EQ(ask(u"SELECT max(deliverers_lost) FROM messages"_s), QVariantList{0});
}

// Without its limits this one would never end.
TEST_F(PostgresFallbackTest, ServerThatStandsStillStopsNoSale)
{
    givenMessage(u"one"_s);
    PostgresServer::instance()->freeze();
    givenMessage(u"two"_s);
    EXPECT_EQ(here(), 1);
    Singleton<DBQueueBroker>::reset();
    givenMessage(u"three"_s);
    EXPECT_EQ(here(), 2);
    PostgresServer::instance()->thaw();
    Singleton<DBQueueBroker>::reset();
    EXPECT_EQ(queue()->waiting(), 3);
    EXPECT_EQ(onServer(), (QStringList{u"one"_s, u"two"_s, u"three"_s}));
}

TEST_F(PostgresFallbackTest, WhatMadeASaleWaitIsNotTriedAgainAtOnce)
{
    givenMessage(u"one"_s);
    PostgresServer::instance()->freeze();
    givenMessage(u"two"_s);
    PostgresServer::instance()->thaw();
    givenMessage(u"three"_s);
    EXPECT_EQ(here(), 2);
}

TEST_F(PostgresFallbackTest, DeliveryNeedsTheServer)
{
    givenServerAway();
    givenMessage(u"one"_s);
    EXPECT_THROW(whenDelivered(), StorageError);
    EXPECT_TRUE(exchanges().isEmpty());
    EXPECT_EQ(here(), 1);
}

TEST_F(PostgresFallbackTest, OfficeShowsWhatWaitsHereAndWhy)
{
    givenServerAway();
    givenMessage(u"one"_s);
    queue()->inOffice([](QueueOffice &office) {
        const auto status = office.status();
        EXPECT_TRUE(status.unreached.ru().startsWith(u"postgresql://"_s));
        EXPECT_EQ(status.waitingHere, 1);
        EXPECT_EQ(status.counts.value(MessageState::Pending), 1);
        EXPECT_EQ(office.list({}).size(), 1);
    });
    EXPECT_EQ(queue()->list().size(), 1);
}

TEST_F(PostgresFallbackTest, OfficeShowsBothQueues)
{
    givenMessages({u"one"_s, u"two"_s});
    // In hand here, so that it cannot move.
    QueueMessage message;
    message.id = u"here"_s;
    MessageStore local(databaseFile());
    local.append(message);
    ASSERT_TRUE(local.checkOut({QDateTime::currentDateTimeUtc()}).message);
    queue()->inOffice([](QueueOffice &office) {
        EXPECT_TRUE(office.status().unreached.isEmpty());
        EXPECT_EQ(office.status().waitingHere, 1);
        QueueOffice::Page page{{}, 0, 2};
        EXPECT_EQ(office.list(page).size(), 2);
        page.behind = office.list(page).last().number;
        ASSERT_EQ(office.list(page).size(), 1);
        EXPECT_EQ(office.list(page).first().id, u"here"_s);
        page.behind = office.list(page).first().number;
        EXPECT_TRUE(office.list(page).isEmpty());
        EXPECT_EQ(office.find(u"her"_s).size(), 1);
    });
    EXPECT_EQ(queue()->waiting(), 3);
    EXPECT_EQ(queue()->list().size(), 3);
}

} // namespace

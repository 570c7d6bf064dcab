// The table grows, and the program of before still works a file that this one has been at.

#include "host/storage/statefolder.h"
#include "host/storage/storageerror.h"
#include "tests/host/queue/firstlayout.h"
#include "tests/host/queue/queuefixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString laterTime = u"2024-11-22T08:00:00.000Z"_s;

class QueueLayoutTest : public testing::Test, public QueueFixture
{
protected:
    static void givenFileOfTheFirstLayout()
    {
        ASSERT_TRUE(QDir().mkpath(Singleton<StateFolder>::instance()->queue()));
        for (const QString &statement : firstlayout::make)
            ask(statement);
    }
    static void whenFirstProgramEnqueues(
        const QString &id, const QString &body, const QString &state = u"pending"_s)
    {
        ask(firstlayout::append, {id, body.toUtf8(), state});
    }
    /// As the deliverer of the first layout does it.
    static void whenFirstProgramDelivers()
    {
        const qint64 number = ask(firstlayout::chooseNext, {0}).value(0).toLongLong();
        ask(firstlayout::checkOut, {u"sending"_s, 1, number});
        ask(firstlayout::settle,
            {u"delivered"_s, laterTime, u""_s, QByteArray("<answer/>"), number});
    }
    static void whenRestarted() { Singleton<DBQueueBroker>::reset(); }
    static QVariant countOf(const QString &state)
    {
        return ask(u"SELECT messages FROM counts WHERE state = ?"_s, {state}).value(0);
    }
};

TEST_F(QueueLayoutTest, NewFileSaysWhichProgramCanWorkItAndWhichLayoutItHas)
{
    givenMessage(u"one"_s);
    EXPECT_EQ(ask(firstlayout::knownVersion), QVariantList{1});
    EXPECT_EQ(ask(u"SELECT value FROM facts WHERE name = 'layout'"_s), QVariantList{u"3"_s});
}

TEST_F(QueueLayoutTest, MessagesOfTheFirstLayoutAreDelivered)
{
    givenFileOfTheFirstLayout();
    whenFirstProgramEnqueues(u"a"_s, u"one"_s);
    whenFirstProgramEnqueues(u"b"_s, u"two"_s, u"sending"_s);
    whenFirstProgramEnqueues(u"c"_s, u"three"_s, u"refused"_s);
    givenMessage(u"four"_s);
    EXPECT_EQ(whenDelivered().delivered, 3);
    EXPECT_EQ(sentBodies(), (QStringList{u"one"_s, u"two"_s, u"four"_s}));
    EXPECT_EQ(exchanges().first().headers.value(u"Authorization"_s), u"Basic c2VjcmV0"_s);
    EXPECT_EQ(queue()->list().size(), 1);
}

TEST_F(QueueLayoutTest, CountsBeginWithWhatWasThere)
{
    givenFileOfTheFirstLayout();
    whenFirstProgramEnqueues(u"a"_s, u"one"_s);
    whenFirstProgramEnqueues(u"b"_s, u"two"_s);
    whenFirstProgramEnqueues(u"c"_s, u"three"_s, u"parked"_s);
    EXPECT_EQ(queue()->waiting(), 2);
    EXPECT_EQ(countOf(u"pending"_s), 2);
    EXPECT_EQ(countOf(u"parked"_s), 1);
}

TEST_F(QueueLayoutTest, WhatTheFirstLayoutDeliveredWasSettledAtItsLastAttempt)
{
    givenFileOfTheFirstLayout();
    whenFirstProgramEnqueues(u"a"_s, u"one"_s);
    whenFirstProgramDelivers();
    EXPECT_EQ(queue()->waiting(), 0);
    EXPECT_EQ(ask(u"SELECT settled FROM messages"_s), QVariantList{laterTime});
}

TEST_F(QueueLayoutTest, ProgramOfTheFirstLayoutWorksTheFileAfterAnUpgradeWasTakenBack)
{
    givenMessage(u"one"_s);
    whenRestarted();
    EXPECT_EQ(ask(firstlayout::knownVersion), QVariantList{1});
    whenFirstProgramEnqueues(u"b"_s, u"two"_s);
    EXPECT_EQ(ask(firstlayout::waiting), QVariantList{2});
    EXPECT_FALSE(ask(firstlayout::undelivered).isEmpty());
    whenFirstProgramDelivers();
    EXPECT_EQ(ask(firstlayout::waiting), QVariantList{1});
}

TEST_F(QueueLayoutTest, NextUpgradeTakesOverWhatTheFirstProgramDid)
{
    givenMessage(u"one"_s);
    whenRestarted();
    whenFirstProgramEnqueues(u"b"_s, u"two"_s);
    whenFirstProgramDelivers();
    EXPECT_EQ(queue()->waiting(), 1);
    EXPECT_EQ(
        ask(u"SELECT settled FROM messages WHERE state = 'delivered'"_s), QVariantList{laterTime});
    whenDelivered();
    EXPECT_EQ(sentBodies(), QStringList{u"two"_s});
}

TEST_F(QueueLayoutTest, CountsFollowEveryChange)
{
    givenMessage(u"one"_s);
    givenMessage(u"two"_s);
    whenDelivered();
    ask(u"DELETE FROM messages WHERE body = CAST('one' AS BLOB)"_s);
    ask(u"UPDATE messages SET state = 'parked'"_s);
    EXPECT_EQ(countOf(u"pending"_s), 0);
    EXPECT_EQ(countOf(u"sending"_s), 0);
    EXPECT_EQ(countOf(u"delivered"_s), 0);
    EXPECT_EQ(countOf(u"parked"_s), 1);
}

TEST_F(QueueLayoutTest, FileOfALaterLayoutThatThisProgramCanWorkIsWorked)
{
    givenMessage(u"one"_s);
    whenRestarted();
    ask(u"UPDATE facts SET value = '4' WHERE name = 'layout'"_s);
    ask(u"PRAGMA user_version = 3"_s);
    EXPECT_EQ(queue()->waiting(), 1);
    EXPECT_EQ(ask(firstlayout::knownVersion), QVariantList{3});
    EXPECT_EQ(ask(u"SELECT value FROM facts WHERE name = 'layout'"_s), QVariantList{u"4"_s});
}

TEST_F(QueueLayoutTest, FileOfTheSecondLayoutGetsItsIndices)
{
    givenMessage(u"one"_s);
    whenRestarted();
    ask(u"DROP INDEX messages_of_documents"_s);
    ask(u"DROP INDEX messages_moved"_s);
    ask(u"UPDATE facts SET value = '2' WHERE name = 'layout'"_s);
    EXPECT_EQ(queue()->waiting(), 1);
    EXPECT_EQ(ask(u"SELECT count(*) FROM pragma_index_list('messages') WHERE name IN "
                  u"('messages_of_documents', 'messages_moved')"_s),
        QVariantList{2});
    EXPECT_EQ(ask(u"SELECT value FROM facts WHERE name = 'layout'"_s), QVariantList{u"3"_s});
}

TEST_F(QueueLayoutTest, FailedUpgradeLeavesTheFileAsItWas)
{
    givenFileOfTheFirstLayout();
    whenFirstProgramEnqueues(u"a"_s, u"one"_s);
    // In the way of the upgrade's last step.
    ask(u"CREATE TABLE counts (something TEXT)"_s);
    EXPECT_THROW(static_cast<void>(queue()->waiting()), StorageError);
    EXPECT_EQ(ask(u"SELECT count(*) FROM pragma_table_info('messages')"_s), QVariantList{14});
}

TEST_F(QueueLayoutTest, MessagesOfADocumentAreFoundByTheirIndex)
{
    givenMessage(u"one"_s);
    const QVariantList plan = ask(u"EXPLAIN QUERY PLAN SELECT id FROM messages WHERE "
                                  u"correlation_id = ? AND correlation_id <> '' ORDER BY number"_s,
        {u"doc"_s});
    EXPECT_TRUE(plan.constLast().toString().contains(u"USING INDEX messages_of_documents"_s))
        << qPrintable(plan.constLast().toString());
}

} // namespace

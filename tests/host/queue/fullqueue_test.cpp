// Ten thousand messages: an upgrade with them, and what one more of them costs.

#include "host/queue/messagestore.h"
#include "host/storage/statefolder.h"
#include "tests/host/queue/firstlayout.h"
#include "tests/host/queue/queuefixture.h"

#include <QDir>
#include <QFileInfo>
#include <QSqlQuery>
#include <QUuid>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int many = 10000;
const QStringList settledStates{u"delivered"_s, u"refused"_s, u"parked"_s};
constexpr int manyWaiting = 1000;
constexpr int manySettled = (many - manyWaiting) / 3;

/// Of twenty in a row the first waits, the second was in hand, and the others are of each of the
/// other states in turn.
QString stateOf(int number)
{
    const int place = number % 20;
    if (place < 2)
        return place == 0 ? u"pending"_s : u"sending"_s;
    return settledStates.at(place % 3);
}

class FullQueueTest : public testing::Test, public QueueFixture
{
protected:
    /// As the program of the first layout has left it.
    static void givenFullFileOfTheFirstLayout()
    {
        ASSERT_TRUE(QDir().mkpath(Singleton<StateFolder>::instance()->queue()));
        for (const QString &statement : firstlayout::make)
            ask(statement);
        QList<QVariantList> rows;
        for (int number = 0; number < many; ++number)
            rows.append({u"id-%1"_s.arg(number), QByteArray::number(number), stateOf(number)});
        runForEach(firstlayout::append, rows);
    }
    static QStringList waitingBodies()
    {
        QStringList bodies;
        for (int number = 0; number < many; ++number)
            if (!settledStates.contains(stateOf(number)))
                bodies.append(QString::number(number));
        return bodies;
    }
    static int count(const QString &state)
    {
        return ask(u"SELECT count(*) FROM messages WHERE state = ?"_s, {state}).value(0).toInt();
    }
    static void whenRestarted() { Singleton<DBQueueBroker>::reset(); }
};

TEST_F(FullQueueTest, IsUpgradedAndDelivered)
{
    givenFullFileOfTheFirstLayout();
    EXPECT_EQ(queue()->waiting(), manyWaiting);
    EXPECT_EQ(queue()->list().size(), manyWaiting + 2 * manySettled);
    EXPECT_EQ(whenDelivered().delivered, manyWaiting);
    EXPECT_EQ(sentBodies(), waitingBodies());
    EXPECT_EQ(count(u"refused"_s), manySettled);
    EXPECT_EQ(count(u"parked"_s), manySettled);
    // Those that the program of before had delivered were so long ago that they begin to go.
    EXPECT_EQ(count(u"delivered"_s), manyWaiting + manySettled - MessageStore::deletedInOneStep);
}

TEST_F(FullQueueTest, OfThisLayoutIsWorkedByTheProgramOfTheFirst)
{
    givenFullFileOfTheFirstLayout();
    EXPECT_EQ(queue()->waiting(), manyWaiting);
    whenRestarted();
    EXPECT_EQ(ask(firstlayout::knownVersion), QVariantList{1});
    EXPECT_EQ(ask(firstlayout::waiting), QVariantList{manyWaiting});
    EXPECT_EQ(askAll(firstlayout::undelivered).size(), manyWaiting + 2 * manySettled);
    const qint64 number = ask(firstlayout::chooseNext, {0}).value(0).toLongLong();
    EXPECT_EQ(number, 1);
    ask(firstlayout::checkOut, {u"sending"_s, 1, number});
    ask(firstlayout::settle,
        {u"delivered"_s, u"2024-11-22T08:00:00.000Z"_s, u""_s, QByteArray("<answer/>"), number});
    ask(firstlayout::append, {u"new-1"_s, QByteArray("new"), u"pending"_s});
    ask(firstlayout::append, {u"new-2"_s, QByteArray("new"), u"refused"_s});
    EXPECT_EQ(queue()->waiting(), manyWaiting);
    EXPECT_EQ(queue()->list().size(), manyWaiting + 2 * manySettled + 1);
}

/// What enqueueing costs, counted and not timed: bytes that go to the queue's log. A reader of
/// before keeps the log from being begun anew, so that it only grows.
class EnqueueCostTest : public FullQueueTest
{
protected:
    void SetUp() override
    {
        givenMessage(u"first"_s);
        m_reader = QSqlDatabase::addDatabase(u"QSQLITE"_s, u"reader"_s);
        m_reader.setDatabaseName(databaseFile());
        ASSERT_TRUE(m_reader.open());
        QSqlQuery query(m_reader);
        ASSERT_TRUE(query.exec(u"BEGIN"_s));
        ASSERT_TRUE(query.exec(u"SELECT count(*) FROM messages"_s) && query.next());
    }
    void TearDown() override
    {
        m_reader = QSqlDatabase();
        QSqlDatabase::removeDatabase(u"reader"_s);
    }
    static qint64 logSize() { return QFileInfo(databaseFile() + u"-wal"_s).size(); }
    qint64 costOf(int count)
    {
        const qint64 before = logSize();
        for (int number = 0; number < count; ++number)
            givenMessage(QString(1000, u'x'));
        return logSize() - before;
    }
    static void givenMany(int count)
    {
        QList<QueueMessage> messages(count);
        for (QueueMessage &message : messages) {
            message.id = QUuid::createUuid().toString(QUuid::WithoutBraces);
            message.body = QByteArray(1000, 'x');
            message.enqueued = QDateTime::currentDateTimeUtc();
            message.nextAttempt = message.enqueued;
        }
        ASSERT_EQ(MessageStore(databaseFile()).takeIn(messages), count);
    }

private:
    QSqlDatabase m_reader;
};

TEST_F(EnqueueCostTest, BehindTenThousandItIsAtMostTwiceThatOfTheFirst)
{
    constexpr int measured = 200;
    const qint64 first = costOf(measured);
    EXPECT_GT(first, measured * 1000);
    givenMany(many - 2 * measured);
    EXPECT_LE(costOf(measured), 2 * first);
}

} // namespace

// A server that keeps silent: how long it is waited for, and what is said then.

#include "host/queue/queueerror.h"
#include "host/queue/server/queueserver.h"
#include "tests/host/queue/postgresserver.h"
#include "tests/host/queue/queueengine.h"
#include "tests/host/queue/queuefixture.h"
#include "tests/support/logcapture.h"

#include <QSqlDriver>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <libpq-fe.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

using namespace Qt::Literals::StringLiterals;

namespace {

using Clock = std::chrono::steady_clock;

// Far below what the driver and the server wait for by themselves.
constexpr std::chrono::milliseconds brief{200};
const QString inTime = u"сервер не ответил вовремя"_s;

class PostgresWaitsTest : public testing::Test, public QueueFixture
{
protected:
    ~PostgresWaitsTest() override { PostgresServer::instance()->thaw(); }
    Q_DISABLE_COPY_MOVE(PostgresWaitsTest)
    PostgresWaitsTest() = default;

    static void givenServerSilent() { PostgresServer::instance()->freeze(); }
    static void givenServerTalking() { PostgresServer::instance()->thaw(); }
    static QString errorOf(const QString &address)
    {
        try {
            const QueueServer server(ServerAddress::read(address), Clock::now() + brief);
        } catch (const QueueUnreached &error) {
            return QString::fromUtf8(error.what());
        }
        return {};
    }
    static int here() { return MessageStore(databaseFile()).waiting(); }
};

TEST_F(PostgresWaitsTest, ConnectionIsGivenUpAtItsDeadline)
{
    givenServerSilent();
    EXPECT_THAT(
        errorOf(queueengine::setting()).toStdString(), testing::HasSubstr(inTime.toStdString()));
}

TEST_F(PostgresWaitsTest, ConnectionThroughASocketIsGivenUpAtItsDeadline)
{
    givenServerSilent();
    EXPECT_THAT(errorOf(PostgresServer::instance()->socketUrl()).toStdString(),
        testing::HasSubstr(inTime.toStdString()));
}

TEST_F(PostgresWaitsTest, OtherConnectionsToTheServerAreLeftAlone)
{
    const auto store = queueengine::openStore();
    givenServerSilent();
    EXPECT_FALSE(errorOf(queueengine::setting()).isEmpty());
    givenServerTalking();
    EXPECT_EQ(store->waiting(), 0);
}

TEST_F(PostgresWaitsTest, MakingOfTheTablesIsGivenUpAtTheDeadline)
{
    QueueDatabase other(ServerAddress::read(queueengine::setting()));
    const QueueTransaction making(other);
    other.run(u"SELECT pg_advisory_xact_lock(7742330441583845)"_s);
    EXPECT_THAT(
        errorOf(queueengine::setting()).toStdString(), testing::HasSubstr(inTime.toStdString()));
}

TEST_F(PostgresWaitsTest, DeadlineHoldsForNothingLater)
{
    const auto store = std::make_unique<MessageStore>(
        std::make_unique<QueueServer>(ServerAddress::read(queueengine::setting())), u"one"_s);
    {
        const QueueDeadline over(store->database(), Clock::now() - brief);
    }
    EXPECT_EQ(store->waiting(), 0);
    const QueueDeadline over(store->database(), Clock::now() - brief);
    EXPECT_THROW(store->database().run(u"SELECT pg_sleep(1)"_s), QueueUnreached);
    EXPECT_TRUE(store->database().wasCut());
}

TEST_F(PostgresWaitsTest, SaleBehindADeliveryThatHasWaitedWaitsNoSecondTime)
{
    givenMessage(u"one"_s);
    givenDuringExchange([this] {
        givenDuringExchange({});
        givenServerSilent();
    });
    EXPECT_THROW(whenDelivered(), QueueUnreached);
    givenServerTalking();
    givenMessage(u"two"_s);
    EXPECT_EQ(here(), 1);
}

TEST_F(PostgresWaitsTest, SaleThatCannotBeWrittenInTimeIsKeptHere)
{
    const LogCapture log(u"poshost.queue"_s);
    givenMessage(u"one"_s);
    QueueDatabase person(ServerAddress::read(queueengine::setting()));
    const QueueTransaction changing(person);
    person.run(u"LOCK TABLE messages IN ACCESS EXCLUSIVE MODE"_s);
    givenMessage(u"two"_s);
    EXPECT_EQ(here(), 1);
    // Who sees the time pass first, the till or the server, is chance; 57014 is the server's code.
    EXPECT_THAT(log.lines().value(0).toStdString(),
        testing::AnyOf(testing::HasSubstr(inTime.toStdString()), testing::HasSubstr("57014")));
}

// The driver's own look-up of a name has no limit.
TEST_F(PostgresWaitsTest, NameIsLookedUpWithinOurOwnTime)
{
    const auto store = queueengine::openStore();
    QStringList addresses;
    for (const QString &name : QSqlDatabase::connectionNames()) {
        const auto database = QSqlDatabase::database(name, false);
        if (database.driverName() != u"QPSQL"_s)
            continue;
        const QVariant handle = database.driver()->handle();
        PQconninfoOption *const options
            = PQconninfo(*static_cast<PGconn *const *>(handle.constData()));
        for (const PQconninfoOption *option = options; option->keyword; ++option)
            if (qstrcmp(option->keyword, "hostaddr") == 0)
                addresses.append(QString::fromUtf8(option->val));
        PQconninfoFree(options);
    }
    EXPECT_EQ(addresses, QStringList{u"127.0.0.1"_s});
}

// A router between a till and the server forgets a connection over which nothing goes.
TEST_F(PostgresWaitsTest, IdleConnectionIsKeptAlive)
{
    const auto store = queueengine::openStore();
    int connections = 0;
    for (const QString &name : QSqlDatabase::connectionNames()) {
        const auto database = QSqlDatabase::database(name, false);
        if (database.driverName() != u"QPSQL"_s)
            continue;
        const QVariant handle = database.driver()->handle();
        ++connections;
        int seconds = 0;
        socklen_t size = sizeof seconds;
        const int socket = PQsocket(*static_cast<PGconn *const *>(handle.constData()));
        ASSERT_EQ(::getsockopt(socket, IPPROTO_TCP, TCP_KEEPIDLE, &seconds, &size), 0);
        EXPECT_EQ(seconds, 60);
    }
    EXPECT_EQ(connections, 1);
}

} // namespace

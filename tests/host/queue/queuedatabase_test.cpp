// The queue's file: private from the first moment, in the mode that keeps commits, of this version.

#include "host/queue/queuedatabase.h"
#include "host/storage/filelock.h"
#include "host/storage/storageerror.h"
#include "tests/host/queue/queuefixture.h"
#include "tests/host/storage/files.h"

#include <QSqlQuery>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

using namespace Qt::Literals::StringLiterals;

namespace {

class QueueDatabaseTest : public testing::Test, public QueueFixture
{
protected:
    [[nodiscard]] static QString folder() { return QFileInfo(databaseFile()).absolutePath(); }
    [[nodiscard]] static std::string errorOfOpening()
    {
        try {
            static_cast<void>(queue()->waiting());
        } catch (const StorageError &error) {
            return error.what();
        }
        return "opened without an error";
    }
};

TEST_F(QueueDatabaseTest, EveryFileIsForItsOwnerOnlyWhateverTheMask)
{
    const auto mask = ::umask(0);
    givenMessage(u"one"_s);
    ::umask(mask);
    const QStringList names = files::namesIn(folder());
    EXPECT_THAT(names, testing::Contains(u"queue.sqlite-wal"_s));
    for (const QString &name : names)
        EXPECT_TRUE(files::isPrivate(folder() + u'/' + name)) << qPrintable(name);
    EXPECT_TRUE(files::isPrivate(folder()));
}

TEST_F(QueueDatabaseTest, RightsOfOthersOnAnOldFileAreTakenAway)
{
    givenMessage(u"one"_s);
    Singleton<DBQueueBroker>::reset();
    ASSERT_TRUE(QFile::setPermissions(databaseFile(),
        QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther));
    givenMessage(u"two"_s);
    for (const QString &name : files::namesIn(folder()))
        EXPECT_TRUE(files::isPrivate(folder() + u'/' + name)) << qPrintable(name);
}

TEST_F(QueueDatabaseTest, TransactionOwnsTheFileFromItsFirstMoment)
{
    queue()->open();
    QueueDatabase one(databaseFile());
    QueueDatabase other(databaseFile());
    const QueueTransaction first(one);
    EXPECT_THROW(const QueueTransaction second(other), StorageError);
}

TEST_F(QueueDatabaseTest, PlainBeginFailsAtOnceWhenAnotherHasChangedSomething)
{
    queue()->open();
    QueueDatabase one(databaseFile());
    QueueDatabase other(databaseFile());
    one.run(u"BEGIN"_s);
    EXPECT_TRUE(one.fact(u"name"_s).isEmpty());
    other.setFact(u"name"_s, u"other"_s);
    EXPECT_THROW(one.setFact(u"name"_s, u"one"_s), StorageError);
}

TEST_F(QueueDatabaseTest, WritesAheadAndKnowsItsVersion)
{
    givenMessage(u"one"_s);
    EXPECT_EQ(ask(u"PRAGMA journal_mode"_s), QVariantList{u"wal"_s});
    EXPECT_EQ(ask(u"PRAGMA user_version"_s), QVariantList{1});
}

TEST_F(QueueDatabaseTest, KeepsFewPagesInMemory)
{
    queue()->open();
    QueueDatabase database(databaseFile());
    QSqlQuery answer = database.run(u"PRAGMA cache_size"_s);
    ASSERT_TRUE(answer.next());
    EXPECT_EQ(answer.value(0).toInt(), -512);
}

TEST_F(QueueDatabaseTest, FileOfANewerVersionIsRefusedAndLeftAlone)
{
    givenMessage(u"one"_s);
    Singleton<DBQueueBroker>::reset();
    ask(u"PRAGMA user_version = 4"_s);
    EXPECT_THAT(errorOfOpening(), testing::HasSubstr("более новой версией (4, эта знает 3)"));
    EXPECT_EQ(ask(u"SELECT count(*) FROM messages"_s), QVariantList{1});
    EXPECT_EQ(ask(u"PRAGMA user_version"_s), QVariantList{4});
}

TEST_F(QueueDatabaseTest, FileIsClosedWithItsBroker)
{
    givenMessage(u"one"_s);
    Singleton<DBQueueBroker>::reset();
    EXPECT_THAT(files::namesIn(folder()), testing::Not(testing::Contains(u"queue.sqlite-wal"_s)));
    EXPECT_TRUE(QSqlDatabase::connectionNames().isEmpty());
}

TEST_F(QueueDatabaseTest, FailedOpeningLeavesNoConnection)
{
    ASSERT_TRUE(QDir().mkpath(databaseFile()));
    EXPECT_NE(errorOfOpening(), "opened without an error");
    EXPECT_TRUE(QSqlDatabase::connectionNames().isEmpty());
}

TEST_F(QueueDatabaseTest, LeftoverOfAKilledMakingIsMadeAnew)
{
    ASSERT_TRUE(QDir().mkpath(folder()));
    files::put(databaseFile() + u".new"_s, "half a file");
    files::put(databaseFile() + u".new-wal"_s, "half a log");
    givenMessage(u"one"_s);
    EXPECT_EQ(queue()->waiting(), 1);
    EXPECT_THAT(files::namesIn(folder()),
        testing::Not(testing::Contains(
            testing::Truly([](const QString &name) { return name.contains(u".new"_s); }))));
}

TEST_F(QueueDatabaseTest, FileIsNotOpenedWhileAnotherProcessMakesOrMovesIt)
{
    ASSERT_TRUE(QDir().mkpath(folder()));
    FileLock other(databaseFile() + u".open"_s);
    ASSERT_TRUE(other.tryLock());
    EXPECT_THAT(errorOfOpening(), testing::HasSubstr("ещё открывает"));
    EXPECT_FALSE(QFile::exists(databaseFile()));
}

TEST_F(QueueDatabaseTest, TwoBrokersWorkOnOneFile)
{
    DBQueueBroker second;
    givenMessage(u"one"_s);
    second.enqueue(u"loyalty"_s, {}, {});
    EXPECT_EQ(queue()->waiting(), 2);
    EXPECT_EQ(second.waiting(), 2);
}

TEST_F(QueueDatabaseTest, AStatementThatFailedOnceWorksAgain)
{
    givenMessage(u"one"_s);
    QueueDatabase database(databaseFile(), QueueDatabase::Use::Work);
    const QString statement = u"UPDATE messages SET last_error = ? WHERE queue <> ?"_s;
    EXPECT_THROW(database.change(statement, {u"a"_s, u"none"_s, u"too many"_s}), StorageError);
    EXPECT_EQ(database.change(statement, {u"a"_s, u"none"_s}), 1);
}

} // namespace

// What the queue's file cannot take goes to the spill file and comes back once, in order.

#include "host/framework/basicexception.h"
#include "host/queue/queueoffice.h"
#include "host/queue/spillfile.h"
#include "host/storage/storageerror.h"
#include "tests/host/queue/queuefixture.h"
#include "tests/host/queue/spillmessage.h"
#include "tests/host/storage/files.h"
#include "tests/support/logcapture.h"

#include <QFileInfo>
#include <QSqlQuery>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;

namespace {

class SpillingTest : public testing::Test, public QueueFixture
{
protected:
    static QString spillFile() { return databaseFile() + u".spill"_s; }
    static QString ballastFile() { return databaseFile() + u".ballast"_s; }
    static bool hasSpilled() { return QFileInfo(spillFile()).size() > 0; }
    /// Nothing can be opened under the queue's name.
    static void givenUnusableFile() { ASSERT_TRUE(QDir().mkpath(databaseFile())); }
    static void givenUsableFile() { ASSERT_TRUE(QDir().rmdir(databaseFile())); }
};

TEST_F(SpillingTest, UnusableFileStopsNoSale)
{
    givenUnusableFile();
    givenMessage(u"one"_s);
    EXPECT_TRUE(hasSpilled());
}

TEST_F(SpillingTest, SpilledMessagesComeInBeforeTheNextOne)
{
    givenUnusableFile();
    givenMessage(u"one"_s);
    givenMessage(u"two"_s);
    givenUsableFile();
    givenMessage(u"three"_s);
    EXPECT_FALSE(hasSpilled());
    whenDelivered();
    EXPECT_EQ(sentBodies(), (QStringList{u"one"_s, u"two"_s, u"three"_s}));
}

TEST_F(SpillingTest, SpilledMessagesComeInWhenTheQueueIsOpened)
{
    givenUnusableFile();
    givenMessage(u"one"_s);
    givenUsableFile();
    queue()->open();
    EXPECT_EQ(queue()->waiting(), 1);
}

TEST_F(SpillingTest, SpilledMessagesComeInAtADelivery)
{
    queue()->open();
    {
        DBQueueBroker other;
        givenMessage(u"one"_s);
        SpillFile(spillFile()).append(makeMessage(u"two"_s));
    }
    EXPECT_EQ(whenDelivered().delivered, 2);
}

TEST_F(SpillingTest, MessageThatWasTakenInBeforeAKillIsThereOnce)
{
    givenUnusableFile();
    givenMessage(u"one"_s);
    const QByteArray spilled = files::contents(spillFile());
    givenUsableFile();
    queue()->open();
    files::put(spillFile(), spilled);
    EXPECT_EQ(queue()->waiting(), 1);
    EXPECT_FALSE(hasSpilled());
}

/// The queue's file takes nothing in, as on a disk that has no room for the ballast.
class HeldSpillTest : public SpillingTest
{
protected:
    static void givenNoRoom() { ASSERT_TRUE(QDir().mkpath(ballastFile())); }
    static void givenRoom() { ASSERT_TRUE(QDir().rmdir(ballastFile())); }
    static QueueOffice::Status status()
    {
        return queue()->inOffice([](QueueOffice &office) { return office.status(); });
    }
    static QStringList bodiless(const QList<QueueMessage> &messages)
    {
        QStringList ids;
        for (const QueueMessage &message : messages) {
            ids.append(message.id);
            EXPECT_TRUE(message.headers.isEmpty());
            EXPECT_TRUE(message.body.isEmpty());
        }
        return ids;
    }
    /// One message in the queue, two in the spill file.
    void SetUp() override
    {
        givenMessage(u"one"_s);
        Singleton<DBQueueBroker>::reset();
        ASSERT_TRUE(QFile::remove(ballastFile()));
        givenNoRoom();
        for (const QString &id : {u"aa-1"_s, u"aa-2"_s}) {
            QueueMessage message = makeMessage(id);
            message.correlationId = u"doc-"_s + id;
            SpillFile(spillFile()).append(message);
        }
    }
};

TEST_F(HeldSpillTest, SpilledMessagesWaitToo)
{
    EXPECT_EQ(queue()->waiting(), 3);
    EXPECT_EQ(queue()->spilled(), 2);
    EXPECT_EQ(bodiless(queue()->list()).mid(1), (QStringList{u"aa-1"_s, u"aa-2"_s}));
    EXPECT_EQ(status().counts[MessageState::Pending], 3);
    EXPECT_EQ(status().spilled, 2);
    EXPECT_EQ(status().oldestWaiting, makeMessage({}).enqueued);
    EXPECT_EQ(status().waitingHere, 0);
    EXPECT_TRUE(hasSpilled());
}

TEST_F(HeldSpillTest, TheOldestMayBeInTheQueue)
{
    ask(u"UPDATE messages SET enqueued = '2024-11-21T12:30:01.004Z'"_s);
    EXPECT_EQ(status().oldestWaiting, makeMessage({}).enqueued.addMSecs(-1));
    ask(u"UPDATE messages SET state = 'sending'"_s);
    EXPECT_EQ(status().oldestWaiting, makeMessage({}).enqueued.addMSecs(-1));
}

TEST_F(HeldSpillTest, TheyStandBehindTheOthersPageByPage)
{
    queue()->inOffice([](QueueOffice &office) {
        QStringList ids;
        for (QueueOffice::Page page{{}, 0, 1};;) {
            const QList<QueueMessage> messages = office.list(page);
            if (messages.isEmpty())
                break;
            EXPECT_EQ(messages.size(), 1);
            page.behind = messages.last().number;
            ids += bodiless(messages);
        }
        EXPECT_EQ(ids.mid(1), (QStringList{u"aa-1"_s, u"aa-2"_s}));
        EXPECT_EQ(office.list({{MessageState::Pending}, 0, 9}).size(), 3);
        EXPECT_TRUE(office.list({{MessageState::Parked}, 0, 9}).isEmpty());
    });
}

TEST_F(HeldSpillTest, TheyAreFoundByIdAndByDocument)
{
    queue()->inOffice([](QueueOffice &office) {
        EXPECT_EQ(office.find(u"aa"_s).size(), 2);
        EXPECT_EQ(office.find(u"aa-2"_s).value(0).body, makeMessage({}).body);
        EXPECT_EQ(bodiless(office.ofDocument(u"doc-aa-1"_s)), QStringList{u"aa-1"_s});
        EXPECT_TRUE(office.ofDocument(u"doc"_s).isEmpty());
    });
    SpillFile(spillFile()).append(makeMessage(u"of no document"_s));
    queue()->inOffice([](QueueOffice &office) { EXPECT_TRUE(office.ofDocument(u""_s).isEmpty()); });
}

TEST_F(HeldSpillTest, OneThatWasTakenInAlreadyIsCountedOnce)
{
    SpillFile(spillFile()).append(queue()->list().first());
    EXPECT_EQ(queue()->waiting(), 3);
    EXPECT_EQ(queue()->spilled(), 2);
}

TEST_F(HeldSpillTest, WithRoomTheyAreTakenInAndSent)
{
    EXPECT_EQ(whenDelivered().delivered, 1);
    givenRoom();
    EXPECT_EQ(queue()->spilled(), 0);
    EXPECT_EQ(queue()->waiting(), 2);
    EXPECT_EQ(whenDelivered().delivered, 2);
}

TEST_F(HeldSpillTest, ASpillFileThatCannotBeReadStopsNoDelivery)
{
    const LogCapture log(u"poshost.queue"_s);
    ASSERT_TRUE(QFile::remove(spillFile()));
    ASSERT_TRUE(QDir().mkpath(spillFile()));
    EXPECT_EQ(whenDelivered().delivered, 1);
    EXPECT_EQ(queue()->waiting(), 0);
    EXPECT_FALSE(log.lines().filter(u"не читается"_s).isEmpty());
}

TEST_F(SpillingTest, LockedQueueSpillsAfterTwoSeconds)
{
    givenMessage(u"one"_s);
    auto other = QSqlDatabase::addDatabase(u"QSQLITE"_s, u"other"_s);
    other.setDatabaseName(databaseFile());
    ASSERT_TRUE(other.open());
    QSqlQuery(other).exec(u"BEGIN IMMEDIATE"_s);
    givenMessage(u"two"_s);
    EXPECT_TRUE(hasSpilled());
    QSqlQuery(other).exec(u"ROLLBACK"_s);
    EXPECT_EQ(queue()->waiting(), 2);
    other = QSqlDatabase();
    QSqlDatabase::removeDatabase(u"other"_s);
}

/// The file may not be written although its disk may. What the administrator may do, no mode
/// forbids; so for that one the file lies on a mount of its own.
class ReadOnlyFileTest : public SpillingTest
{
protected:
    void givenReadOnlyFile()
    {
        Singleton<DBQueueBroker>::reset();
        const QByteArray name = QFile::encodeName(databaseFile());
        if (::geteuid() != 0) {
            ASSERT_EQ(::chmod(name.constData(), S_IRUSR), 0);
            return;
        }
        m_isMounted = ::mount(name.constData(), name.constData(), nullptr, MS_BIND, nullptr) == 0;
        if (!m_isMounted)
            GTEST_SKIP() << "this administrator may not mount";
        ASSERT_EQ(
            ::mount(nullptr, name.constData(), nullptr, MS_REMOUNT | MS_BIND | MS_RDONLY, nullptr),
            0);
    }
    void givenWritableFile()
    {
        const QByteArray name = QFile::encodeName(databaseFile());
        if (m_isMounted)
            ASSERT_EQ(::umount2(name.constData(), MNT_DETACH), 0);
        else
            ASSERT_EQ(::chmod(name.constData(), S_IRUSR | S_IWUSR), 0);
        m_isMounted = false;
    }
    void TearDown() override { givenWritableFile(); }

private:
    bool m_isMounted = false;
};

TEST_F(ReadOnlyFileTest, MessagesSpillAndComeInWhenItMayBeWrittenAgain)
{
    givenMessage(u"one"_s);
    givenReadOnlyFile();
    if (IsSkipped())
        return;
    givenMessage(u"two"_s);
    givenMessage(u"three"_s);
    EXPECT_TRUE(hasSpilled());
    EXPECT_THROW(static_cast<void>(queue()->waiting()), StorageError);
    givenWritableFile();
    EXPECT_EQ(queue()->waiting(), 3);
    EXPECT_FALSE(hasSpilled());
    whenDelivered();
    EXPECT_EQ(sentBodies(), (QStringList{u"one"_s, u"two"_s, u"three"_s}));
}

TEST_F(SpillingTest, FileOfANewerVersionSpillsAndIsLeftAlone)
{
    givenMessage(u"one"_s);
    Singleton<DBQueueBroker>::reset();
    ask(u"PRAGMA user_version = 4"_s);
    givenMessage(u"two"_s);
    EXPECT_TRUE(hasSpilled());
    EXPECT_EQ(ask(u"SELECT count(*) FROM messages"_s), QVariantList{1});
}

TEST_F(SpillingTest, QueueThatIsDamagedInUseIsMendedAtTheNextUse)
{
    for (int number = 0; number < 20; ++number)
        givenMessage(QString(9000, u'x'));
    Singleton<DBQueueBroker>::reset();
    queue()->open();
    QFile file(databaseFile());
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    file.write(QByteArray(4096 * 12, 'y'));
    file.close();
    givenMessage(u"new"_s);
    EXPECT_TRUE(hasSpilled());
    EXPECT_GT(queue()->waiting(), 0);
    EXPECT_FALSE(hasSpilled());
    whenDelivered();
    EXPECT_EQ(sentBodies().last(), u"new"_s);
}

TEST_F(SpillingTest, SpillingIsLoggedWithoutCredentials)
{
    const LogCapture log(u"poshost.queue"_s);
    givenUnusableFile();
    givenMessage(u"one"_s);
    EXPECT_THAT(log.lines().join(u'\n').toStdString(), testing::HasSubstr("spill file"));
    EXPECT_FALSE(log.lines().join(u'\n').contains(u"c2VjcmV0"_s));
}

TEST_F(SpillingTest, BallastHasTheSizeOfTheSetting)
{
    givenSetting(u"Queue:ballastKb"_s, u"16"_s);
    queue()->open();
    EXPECT_EQ(QFileInfo(ballastFile()).size(), 16 * 1024);
}

TEST_F(SpillingTest, BallastIsAMegabyteWithoutASetting)
{
    queue()->open();
    EXPECT_EQ(QFileInfo(ballastFile()).size(), 1024 * 1024);
}

/// A queue on a small disk of its own, which only the system's administrator can make.
class FullDiskTest : public SpillingTest
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(QDir().mkpath(disk()));
        const bool mounted = ::mount("tmpfs", QFile::encodeName(disk()).constData(), "tmpfs", 0,
                                 "size=8m,mode=0700")
            == 0;
        if (!mounted)
            GTEST_SKIP() << "a file system can only be mounted by the administrator";
        m_mounted = true;
        givenSetting(u"Queue:database"_s, disk() + u"/queue.sqlite"_s);
        givenSetting(u"Queue:ballastKb"_s, u"64"_s);
        queue()->open();
    }
    void TearDown() override
    {
        Singleton<DBQueueBroker>::reset();
        if (m_mounted)
            ::umount2(QFile::encodeName(disk()).constData(), MNT_DETACH);
    }
    [[nodiscard]] QString disk() const { return stateFolder() + u"/disk"_s; }
    [[nodiscard]] QString fileOfDisk(const QString &suffix) const
    {
        return disk() + u"/queue.sqlite"_s + suffix;
    }
    /// Fills the disk but for what the ballast holds.
    void givenFullDisk()
    {
        QFile filler(disk() + u"/filler"_s);
        ASSERT_TRUE(filler.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
        while (filler.write(QByteArray(1024, 'f')) == 1024) { }
    }

private:
    bool m_mounted = false;
};

TEST_F(FullDiskTest, BallastMakesRoomForTheMessage)
{
    givenFullDisk();
    givenMessage(QString(5000, u'x'));
    EXPECT_FALSE(QFile::exists(fileOfDisk(u".ballast"_s)));
    EXPECT_GT(QFileInfo(fileOfDisk(u".spill"_s)).size(), 0);
}

TEST_F(FullDiskTest, CashierHearsWhenTheBallastIsUsedUpAndNothingElseIsLost)
{
    givenFullDisk();
    int kept = 0;
    const auto keepAll = [this, &kept] {
        for (;; ++kept)
            givenMessage(QString::number(kept) + QString(5000, u'x'));
    };
    EXPECT_THROW(keepAll(), BasicException);
    EXPECT_GE(kept, 64 * 1024 / 8000);
    ASSERT_TRUE(QFile::remove(disk() + u"/filler"_s));
    EXPECT_EQ(whenDelivered().delivered, kept);
    for (int number = 0; number < kept; ++number)
        EXPECT_TRUE(sentBodies().at(number).startsWith(QString::number(number) + u'x'));
}

TEST_F(FullDiskTest, BallastComesBackWithTheRoom)
{
    givenFullDisk();
    givenMessage(QString(5000, u'x'));
    ASSERT_TRUE(QFile::remove(disk() + u"/filler"_s));
    givenMessage(u"one"_s);
    EXPECT_EQ(QFileInfo(fileOfDisk(u".ballast"_s)).size(), 64 * 1024);
}

TEST_F(FullDiskTest, ReadOnlyDiskTellsTheCashier)
{
    givenMessage(u"one"_s);
    Singleton<DBQueueBroker>::reset();
    ASSERT_EQ(
        ::mount("", QFile::encodeName(disk()).constData(), "", MS_REMOUNT | MS_RDONLY, ""), 0);
    EXPECT_THROW(givenMessage(u"two"_s), BasicException);
}

} // namespace

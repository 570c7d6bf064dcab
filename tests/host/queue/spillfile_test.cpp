// The spill file and the ballast by themselves.

#include "host/queue/ballast.h"
#include "host/queue/messagejson.h"
#include "host/queue/spillfile.h"
#include "host/storage/storageerror.h"
#include "tests/host/queue/spillmessage.h"
#include "tests/host/storage/files.h"

#include <QTemporaryDir>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>

using namespace Qt::Literals::StringLiterals;

namespace {

TEST(MessageJsonTest, MessageComesBackAsItWas)
{
    const auto read = messagejson::read(messagejson::line(makeMessage(u"a"_s)));
    ASSERT_TRUE(read);
    EXPECT_EQ(read->id, u"a"_s);
    EXPECT_EQ(read->headers, makeMessage({}).headers);
    EXPECT_EQ(read->body, makeMessage({}).body);
    EXPECT_EQ(read->enqueued, makeMessage({}).enqueued);
    EXPECT_EQ(read->attempts, 3);
    EXPECT_EQ(read->state, MessageState::Pending);
}

TEST(MessageJsonTest, EveryLineThatIsCutIsNoMessage)
{
    const QByteArray line = messagejson::line(makeMessage(u"a"_s)).trimmed();
    for (qsizetype size = 0; size < line.size(); ++size)
        EXPECT_FALSE(messagejson::read(line.left(size))) << size;
}

TEST(MessageJsonTest, ChangedMessageIsNone)
{
    QByteArray line = messagejson::line(makeMessage(u"a"_s));
    EXPECT_FALSE(messagejson::read(line.replace("loyalty", "Loyalty")));
}

class SpillFileTest : public testing::Test
{
protected:
    QStringList takenOver()
    {
        QStringList ids;
        unreadable = spill.takeOver([&ids](const QList<QueueMessage> &messages) {
            for (const QueueMessage &message : messages)
                ids.append(message.id);
        });
        return ids;
    }

    QTemporaryDir folder;
    QString name = folder.filePath(u"spill"_s);
    SpillFile spill{name};
    int unreadable = 0;
};

TEST_F(SpillFileTest, GivesBackInOrderAndOnce)
{
    spill.append(makeMessage(u"a"_s));
    spill.append(makeMessage(u"b"_s));
    EXPECT_FALSE(spill.isEmpty());
    EXPECT_EQ(takenOver(), (QStringList{u"a"_s, u"b"_s}));
    EXPECT_TRUE(spill.isEmpty());
    EXPECT_EQ(takenOver(), QStringList());
    EXPECT_EQ(unreadable, 0);
}

TEST_F(SpillFileTest, LookingAtMessagesTakesNoneAway)
{
    EXPECT_TRUE(spill.messages().isEmpty());
    spill.append(makeMessage(u"a"_s));
    spill.append(makeMessage(u"b"_s));
    files::put(name, files::contents(name) + "torn");
    ASSERT_EQ(spill.messages().size(), 2);
    EXPECT_EQ(spill.messages().last().id, u"b"_s);
    EXPECT_EQ(takenOver(), (QStringList{u"a"_s, u"b"_s}));
}

TEST_F(SpillFileTest, WhoWorksItIsWaitedForAndNotDisturbed)
{
    spill.append(makeMessage(u"a"_s));
    const QByteArray before = files::contents(name);
    const int other = ::open(QFile::encodeName(name).constData(), O_RDWR | O_CLOEXEC);
    ASSERT_EQ(::flock(other, LOCK_EX | LOCK_NB), 0);
    EXPECT_THROW(spill.append(makeMessage(u"b"_s)), StorageError);
    EXPECT_THROW(takenOver(), StorageError);
    ::close(other);
    EXPECT_EQ(files::contents(name), before);
}

TEST_F(SpillFileTest, IsPrivate)
{
    spill.append(makeMessage(u"a"_s));
    EXPECT_TRUE(files::isPrivate(name));
}

TEST_F(SpillFileTest, StaysWhenItCouldNotBeTakenOver)
{
    spill.append(makeMessage(u"a"_s));
    const QByteArray before = files::contents(name);
    EXPECT_THROW(spill.takeOver([](const QList<QueueMessage> &) {
        throw StorageError({tr::undefined, u"full"_s});
    }),
        StorageError);
    EXPECT_EQ(files::contents(name), before);
}

TEST_F(SpillFileTest, TornLastLineIsKeptAside)
{
    spill.append(makeMessage(u"a"_s));
    const QByteArray torn = messagejson::line(makeMessage(u"b"_s)).left(100);
    files::put(name, files::contents(name) + torn);
    EXPECT_EQ(takenOver(), QStringList{u"a"_s});
    EXPECT_EQ(unreadable, 1);
    EXPECT_EQ(files::contents(name + u".unreadable"_s), torn + '\n');
    EXPECT_TRUE(files::isPrivate(name + u".unreadable"_s));
}

TEST_F(SpillFileTest, TornLineSwallowsNoneBehindIt)
{
    files::put(name, messagejson::line(makeMessage(u"a"_s)).left(100));
    spill.append(makeMessage(u"b"_s));
    EXPECT_EQ(takenOver(), QStringList{u"b"_s});
    EXPECT_EQ(unreadable, 1);
}

TEST_F(SpillFileTest, LineThatFoundNoRoomIsTakenBack)
{
    spill.append(makeMessage(u"a"_s));
    const QByteArray before = files::contents(name);
    ::signal(SIGXFSZ, SIG_IGN);
    rlimit old{};
    ::getrlimit(RLIMIT_FSIZE, &old);
    const rlimit tight{static_cast<rlim_t>(before.size() + 50), old.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &tight);
    EXPECT_THROW(spill.append(makeMessage(u"b"_s)), StorageError);
    ::setrlimit(RLIMIT_FSIZE, &old);
    EXPECT_EQ(files::contents(name), before);
}

TEST(BallastTest, TakesRealRoomAndGivesItBack)
{
    QTemporaryDir folder;
    const QString name = folder.filePath(u"ballast"_s);
    EXPECT_TRUE(ballast::keep(name, 65536));
    struct stat status
    { };
    ASSERT_EQ(::stat(QFile::encodeName(name).constData(), &status), 0);
    EXPECT_EQ(status.st_size, 65536);
    EXPECT_GE(status.st_blocks * 512, 65536);
    EXPECT_TRUE(files::isPrivate(name));
    EXPECT_TRUE(ballast::release(name));
    EXPECT_FALSE(QFile::exists(name));
    EXPECT_FALSE(ballast::release(name));
}

TEST(BallastTest, NoneIsKeptWhereNoneIsWanted)
{
    QTemporaryDir folder;
    const QString name = folder.filePath(u"ballast"_s);
    ballast::keep(name, 65536);
    EXPECT_TRUE(ballast::keep(name, 0));
    EXPECT_FALSE(QFile::exists(name));
}

} // namespace

// One holder at a time, and a holder that ends, however it ends, holds nothing.

#include "host/storage/filelock.h"
#include "host/storage/storageerror.h"
#include "tests/host/storage/files.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <memory>
#include <thread>

using namespace Qt::Literals::StringLiterals;

namespace {

// Another process that takes the lock and says so.
class OtherProcess
{
public:
    explicit OtherProcess(const QString &fileName)
    {
        int ends[2]{};
        if (::pipe(ends) != 0)
            qFatal("no pipe");
        m_id = ::fork();
        if (m_id == 0)
            hold(fileName, ends[1]);
        ::close(ends[1]);
        char word = 0;
        m_locked = ::read(ends[0], &word, 1) == 1;
        ::close(ends[0]);
    }
    ~OtherProcess()
    {
        if (m_id > 0)
            kill();
    }
    Q_DISABLE_COPY_MOVE(OtherProcess)

    [[nodiscard]] bool hasLocked() const { return m_locked; }
    [[nodiscard]] pid_t id() const { return m_id; }
    void kill()
    {
        ::kill(m_id, SIGKILL);
        ::waitpid(m_id, nullptr, 0);
        m_id = 0;
    }

private:
    [[noreturn]] static void hold(const QString &fileName, int ready)
    {
        FileLock lock(fileName);
        if (lock.tryLock() && ::write(ready, "+", 1) == 1)
            ::pause();
        ::_exit(1);
    }

    pid_t m_id = 0;
    bool m_locked = false;
};

class FileLockTest : public testing::Test
{
protected:
    [[nodiscard]] QString fileName() const { return folder.filePath(u"lock"_s); }

    QTemporaryDir folder;
};

TEST_F(FileLockTest, SecondHolderIsRefused)
{
    FileLock first(fileName());
    FileLock second(fileName());
    EXPECT_TRUE(first.tryLock());
    EXPECT_FALSE(second.tryLock());
    EXPECT_TRUE(first.tryLock());
}

TEST_F(FileLockTest, TellsWhoHoldsIt)
{
    FileLock first(fileName());
    ASSERT_TRUE(first.tryLock());
    const FileLock second(fileName());
    EXPECT_EQ(second.holder(), QString::number(QCoreApplication::applicationPid()));
    EXPECT_TRUE(files::isPrivate(fileName()));
}

TEST_F(FileLockTest, LongerIdOfAHolderBeforeLeavesNoRest)
{
    files::put(fileName(), "99999999999999999999\n");
    FileLock lock(fileName());
    ASSERT_TRUE(lock.tryLock());
    EXPECT_EQ(lock.holder(), QString::number(QCoreApplication::applicationPid()));
}

TEST_F(FileLockTest, EndsWithItsObjectAndKeepsTheFile)
{
    auto first = std::make_unique<FileLock>(fileName());
    ASSERT_TRUE(first->tryLock());
    first.reset();
    FileLock second(fileName());
    EXPECT_TRUE(QFile::exists(fileName()));
    EXPECT_TRUE(second.tryLock());
}

TEST_F(FileLockTest, OtherProcessHoldsItUntilItIsKilled)
{
    OtherProcess other(fileName());
    ASSERT_TRUE(other.hasLocked());
    FileLock lock(fileName());
    EXPECT_FALSE(lock.tryLock());
    EXPECT_EQ(lock.holder(), QString::number(other.id()));
    other.kill();
    EXPECT_TRUE(lock.tryLock());
}

TEST_F(FileLockTest, FileThatCannotBeMadeIsAnError)
{
    FileLock lock(folder.filePath(u"none/lock"_s));
    EXPECT_THROW(static_cast<void>(lock.tryLock()), StorageError);
    EXPECT_TRUE(lock.holder().isEmpty());
}

struct SharedLockTest : testing::Test
{
    QTemporaryDir folder;
    QString name = folder.filePath(u"lock"_s);
    FileLock one{name};
    FileLock other{name};
};

TEST_F(SharedLockTest, ManyHaveAShare)
{
    EXPECT_TRUE(one.share());
    EXPECT_TRUE(other.share());
}

TEST_F(SharedLockTest, NobodyHasItAloneBesideAShare)
{
    ASSERT_TRUE(one.share());
    EXPECT_FALSE(other.tryLock());
}

TEST_F(SharedLockTest, NobodyHasAShareBesideWhoHasItAlone)
{
    ASSERT_TRUE(one.tryLock());
    EXPECT_FALSE(other.share());
    EXPECT_FALSE(other.share(std::chrono::milliseconds(1)));
}

TEST_F(SharedLockTest, WhoHadItAloneCanShareIt)
{
    ASSERT_TRUE(one.tryLock());
    ASSERT_TRUE(one.share());
    EXPECT_TRUE(other.share());
}

TEST_F(SharedLockTest, ShareIsWaitedFor)
{
    auto holder = std::make_unique<FileLock>(name);
    ASSERT_TRUE(holder->tryLock());
    std::thread ending([&holder] { holder.reset(); });
    EXPECT_TRUE(one.share(std::chrono::minutes(1)));
    ending.join();
}

} // namespace

// Ending by a signal, and waiting for a change.

#include "host/storage/storageerror.h"
#include "till/queue/folderwatch.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <csignal>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace till;

namespace {

// Longer than a test may take: who waits so long has not been woken.
constexpr auto forever = 10min;

class StopRequestTest : public testing::TestWithParam<int>
{ };

TEST_P(StopRequestTest, ASignalIsNotedAndEndsNothing)
{
    const StopRequest stop;
    EXPECT_FALSE(stop.isMade());
    ASSERT_EQ(std::raise(GetParam()), 0);
    EXPECT_TRUE(stop.isMade());
    EXPECT_TRUE(stop.isMade());
}

TEST_P(StopRequestTest, BehindItASignalEndsTheProgramAgain)
{
    {
        const StopRequest stop;
    }
    struct sigaction now
    { };
    ASSERT_EQ(::sigaction(GetParam(), nullptr, &now), 0);
    EXPECT_EQ(now.sa_handler, SIG_DFL);
}

INSTANTIATE_TEST_SUITE_P(Signals, StopRequestTest, testing::Values(SIGTERM, SIGINT, SIGHUP));

class FolderWatchTest : public testing::Test
{
public:
    void whenWritten(const QString &name) const
    {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("x");
    }

    QTemporaryDir folder;
    StopRequest stop;
    FolderWatch watch{folder.path(), stop};
};

TEST_F(FolderWatchTest, AChangeEndsTheWait)
{
    whenWritten(u"new"_s);
    watch.waitForChange(forever);
    watch.forget();
    whenWritten(u"new"_s);
    watch.waitForChange(forever);
}

TEST_F(FolderWatchTest, ARenamedFileEndsTheWait)
{
    whenWritten(u"one"_s);
    watch.forget();
    ASSERT_TRUE(QFile::rename(folder.filePath(u"one"_s), folder.filePath(u"two"_s)));
    watch.waitForChange(forever);
}

TEST_F(FolderWatchTest, TheStopEndsEveryWait)
{
    ASSERT_EQ(std::raise(SIGTERM), 0);
    watch.waitForChange(forever);
    watch.pause(forever);
}

TEST_F(FolderWatchTest, WhatIsForgottenOrOnlyReadEndsNoWait)
{
    whenWritten(u"one"_s);
    watch.forget();
    QFile file(folder.filePath(u"one"_s));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    file.close();
    const auto before = std::chrono::steady_clock::now();
    watch.waitForChange(20ms);
    EXPECT_GE(std::chrono::steady_clock::now() - before, 20ms);
}

TEST_F(FolderWatchTest, AMissingFolderIsNamed)
{
    try {
        const FolderWatch missing(folder.filePath(u"missing"_s), stop);
        FAIL();
    } catch (const StorageError &error) {
        EXPECT_TRUE(QString::fromUtf8(error.what()).startsWith(folder.filePath(u"missing: "_s)));
    }
}

} // namespace

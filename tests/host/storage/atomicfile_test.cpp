// Whole files are replaced in one step, and a failure leaves the old one.

#include "host/storage/atomicfile.h"
#include "host/storage/storageerror.h"
#include "tests/host/storage/files.h"

#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <barrier>
#include <csignal>
#include <future>
#include <vector>

using namespace Qt::Literals::StringLiterals;

namespace {

// As a full disk: no file may grow beyond so many bytes while this lives.
class FullDisk
{
public:
    explicit FullDisk(rlim_t bytes)
    {
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{bytes, m_before.rlim_max};
        m_handler = std::signal(SIGXFSZ, SIG_IGN);
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }
    Q_DISABLE_COPY_MOVE(FullDisk)

private:
    rlimit m_before{};
    void (*m_handler)(int) = nullptr;
};

class AtomicFileTest : public testing::Test
{
protected:
    [[nodiscard]] QString fileName() const { return folder.filePath(u"file.json"_s); }
    [[nodiscard]] QByteArray contents() const { return files::contents(fileName()); }

    QTemporaryDir folder;
};

TEST_F(AtomicFileTest, WritesANewFileForItsOwnerOnly)
{
    atomicfile::write(fileName(), "new");
    EXPECT_EQ(contents(), "new");
    EXPECT_TRUE(files::isPrivate(fileName()));
}

TEST_F(AtomicFileTest, ReplacesTheOldContentsWholly)
{
    atomicfile::write(fileName(), "longer than the new ones");
    atomicfile::write(fileName(), "new");
    EXPECT_EQ(contents(), "new");
    EXPECT_EQ(files::namesIn(folder.path()), QStringList{u"file.json"_s});
}

TEST_F(AtomicFileTest, LeftoverOfAKilledWriterDoesNoHarm)
{
    files::put(fileName() + u".new"_s, "half a docum, and longer than the new contents");
    atomicfile::write(fileName(), "new");
    EXPECT_EQ(contents(), "new");
    EXPECT_EQ(files::namesIn(folder.path()), QStringList{u"file.json"_s});
}

TEST_F(AtomicFileTest, FullDiskLeavesTheOldFileAndNothingElse)
{
    atomicfile::write(fileName(), "old");
    {
        const FullDisk disk(4);
        EXPECT_THROW(atomicfile::write(fileName(), "new and too long"), StorageError);
    }
    EXPECT_EQ(contents(), "old");
    EXPECT_EQ(files::namesIn(folder.path()), QStringList{u"file.json"_s});
}

TEST_F(AtomicFileTest, FailedReplacementLeavesNothingBeside)
{
    ASSERT_TRUE(QDir(folder.path()).mkdir(u"file.json"_s));
    EXPECT_THROW(atomicfile::write(fileName(), "new"), StorageError);
    EXPECT_TRUE(files::namesIn(folder.path()).isEmpty());
}

TEST_F(AtomicFileTest, FailureNamesTheFileAndTheReason)
{
    try {
        atomicfile::write(folder.filePath(u"none/file.json"_s), "new");
        FAIL() << "wrote into a folder that is not there";
    } catch (const StorageError &error) {
        EXPECT_THAT(error.what(), testing::HasSubstr("none/file.json"));
        EXPECT_THAT(error.what(), testing::HasSubstr("No such file"));
    }
}

TEST_F(AtomicFileTest, LinkInPlaceOfTheTemporaryFileIsNotFollowed)
{
    const QString target = folder.filePath(u"target"_s);
    files::put(target, "kept");
    ASSERT_TRUE(QFile::link(target, fileName() + u".new"_s));
    EXPECT_THROW(atomicfile::write(fileName(), "new"), StorageError);
    EXPECT_EQ(files::contents(target), "kept");
}

TEST_F(AtomicFileTest, MakesFoldersForTheirOwnerOnly)
{
    const QString made = folder.filePath(u"one/two"_s);
    atomicfile::makePrivateFolder(made);
    EXPECT_TRUE(QFileInfo(made).isDir());
    EXPECT_TRUE(files::isPrivate(made));
    EXPECT_TRUE(files::isPrivate(folder.filePath(u"one"_s)));
}

TEST_F(AtomicFileTest, FolderMayBeNamedWithASlashBehindIt)
{
    EXPECT_NO_THROW(atomicfile::makePrivateFolder(folder.filePath(u"one/two/"_s)));
    EXPECT_TRUE(files::isPrivate(folder.filePath(u"one/two"_s)));
}

TEST_F(AtomicFileTest, FolderThatIsThereStaysAsItIs)
{
    const auto rights = QFile::permissions(folder.path()) | QFile::ReadGroup;
    ASSERT_TRUE(QFile::setPermissions(folder.path(), rights));
    atomicfile::makePrivateFolder(folder.path());
    EXPECT_EQ(QFile::permissions(folder.path()), rights);
}

TEST_F(AtomicFileTest, FolderCannotBeMadeWhereAFileIs)
{
    files::put(fileName(), "a file");
    EXPECT_THROW(atomicfile::makePrivateFolder(fileName()), StorageError);
    EXPECT_THROW(atomicfile::makePrivateFolder(fileName() + u"/below"_s), StorageError);
}

TEST_F(AtomicFileTest, RemovesAFileAndMissesNoneThatIsNotThere)
{
    files::put(fileName(), "old");
    atomicfile::remove(fileName());
    EXPECT_FALSE(QFile::exists(fileName()));
    EXPECT_NO_THROW(atomicfile::remove(fileName()));
}

TEST_F(AtomicFileTest, RemovesWithoutASyncTheSameWay)
{
    files::put(fileName(), "old");
    atomicfile::removeUnsynced(fileName());
    EXPECT_FALSE(QFile::exists(fileName()));
    EXPECT_NO_THROW(atomicfile::removeUnsynced(fileName()));
    EXPECT_THROW(atomicfile::removeUnsynced(folder.path()), StorageError);
}

TEST_F(AtomicFileTest, WhatCannotBeRemovedIsAnError)
{
    EXPECT_THROW(atomicfile::remove(folder.path()), StorageError);
}

TEST_F(AtomicFileTest, ManyMakeTheSameFolderAtOnce)
{
    constexpr int makers = 4;
    constexpr int rounds = 100;
    std::barrier start(makers);
    const auto makeAll = [&] {
        int failures = 0;
        for (int round = 0; round < rounds; ++round) {
            start.arrive_and_wait();
            try {
                atomicfile::makePrivateFolder(folder.filePath(u"%1/deep/folder"_s.arg(round)));
            } catch (const StorageError &) {
                ++failures;
            }
        }
        return failures;
    };
    std::vector<std::future<int>> made;
    for (int maker = 0; maker < makers; ++maker)
        made.push_back(std::async(std::launch::async, makeAll));
    for (auto &failures : made)
        EXPECT_EQ(failures.get(), 0);
}

} // namespace

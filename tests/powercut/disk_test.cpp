// What a disk promises, and every way in which it keeps no more than that.

#include "tests/powercut/disk.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

namespace powercut {

namespace {

using Kind = Record::Kind;
using Contents = std::set<QByteArray>;

constexpr quint32 seeds = 400;
constexpr int made = O_WRONLY | O_CREAT;
const QByteArray gone = "(no such file)";

/// A disk with the empty file "file", whose folder is synced, open as 1, and its folder as 2.
class DiskTest : public testing::Test
{
protected:
    DiskTest()
    {
        when({Kind::Open, 1, made, "file"});
        when({Kind::Open, 2, O_RDONLY | O_DIRECTORY, ""});
        when({Kind::Sync, 2, 0, {}});
    }

    void when(const Record &record) { disk.apply(record); }
    void whenWritten(qint64 offset, const QByteArray &bytes)
    {
        when({Kind::Write, 1, offset, bytes});
    }
    void whenSynced(int opening) { when({Kind::Sync, opening, 0, {}}); }

    /// All that a file is after power cuts now.
    [[nodiscard]] Contents after(const QByteArray &name) const
    {
        Contents all;
        for (quint32 seed = 0; seed < seeds; ++seed) {
            const Tree tree = disk.afterCut(Chance(seed));
            const auto file = tree.files.find(name);
            all.insert(file == tree.files.end() ? gone : file->second);
        }
        return all;
    }
    /// All sets of names that are there after power cuts now.
    [[nodiscard]] std::set<std::set<QByteArray>> namesAfter() const
    {
        std::set<std::set<QByteArray>> all;
        for (quint32 seed = 0; seed < seeds; ++seed) {
            std::set<QByteArray> names;
            for (const auto &[name, contents] : disk.afterCut(Chance(seed)).files)
                names.insert(name);
            all.insert(names);
        }
        return all;
    }

    Disk disk;
};

TEST_F(DiskTest, ProgramsSeeEverythingAtOnce)
{
    whenWritten(0, "12345678");
    whenWritten(2, "ab");
    when({Kind::Cut, 1, 6, {}});
    when({Kind::Mkdir, 0, 0, "folder"});
    when({Kind::Open, 3, made, "folder/other"});
    when({Kind::Reserve, 3, 2, {}});
    const Tree present{{{"file", "12ab56"}, {"folder/other", QByteArray(2, '\0')}}, {"folder"}};
    EXPECT_EQ(disk.present(), present);
}

TEST_F(DiskTest, SyncedContentsStay)
{
    whenWritten(0, "12345678");
    whenWritten(2, "ab");
    whenSynced(1);
    EXPECT_EQ(after("file"), Contents{"12ab5678"});
}

TEST_F(DiskTest, UnsyncedWriteIsThereOrNotOrItsLengthAlone)
{
    whenWritten(0, "1234");
    EXPECT_EQ(after("file"), Contents({"", "1234", QByteArray(4, '\0')}));
}

TEST_F(DiskTest, WritesSurviveInAnyOrder)
{
    whenWritten(0, QByteArray(8, '.'));
    whenSynced(1);
    whenWritten(0, "ab");
    whenWritten(4, "cd");
    EXPECT_EQ(after("file"), Contents({"........", "ab......", "....cd..", "ab..cd.."}));
}

TEST_F(DiskTest, WriteTearsAtTheBordersOfSectorsAndNowhereElse)
{
    constexpr qsizetype sector = 512;
    const QByteArray old(2 * sector, '.');
    whenWritten(0, old);
    whenSynced(1);
    whenWritten(sector - 2, "abcd");
    const QByteArray before(sector - 2, '.');
    EXPECT_EQ(after("file"),
        Contents({old, before + "ab" + QByteArray(sector, '.'),
            before + "..cd" + QByteArray(sector - 2, '.'),
            before + "abcd" + QByteArray(sector - 2, '.')}));
}

TEST_F(DiskTest, UnsyncedCutIsThereOrNot)
{
    whenWritten(0, "1234");
    whenSynced(1);
    when({Kind::Open, 3, O_WRONLY | O_TRUNC, "file"});
    EXPECT_EQ(after("file"), Contents({"1234", ""}));
}

TEST_F(DiskTest, SyncOfTheFileKeepsNoName)
{
    when({Kind::Open, 3, made, "new"});
    when({Kind::Write, 3, 0, "1234"});
    whenSynced(3);
    EXPECT_EQ(after("new"), Contents({gone, "1234"}));
    whenSynced(2);
    EXPECT_EQ(after("new"), Contents{"1234"});
}

TEST_F(DiskTest, SyncOfTheFolderKeepsNoContents)
{
    whenWritten(0, "1234");
    whenSynced(2);
    EXPECT_TRUE(after("file").contains(""));
}

TEST_F(DiskTest, UnsyncedRenameIsThereOrNotInOneStep)
{
    when({Kind::Open, 3, made, "new"});
    whenSynced(2);
    when({Kind::Rename, 0, 0, QByteArray("new\0file", 8)});
    EXPECT_EQ(namesAfter(), std::set<std::set<QByteArray>>({{"file", "new"}, {"file"}}));
    whenSynced(2);
    EXPECT_EQ(namesAfter(), std::set<std::set<QByteArray>>({{"file"}}));
}

TEST_F(DiskTest, NamesAreLostFromTheEnd)
{
    when({Kind::Unlink, 0, 0, "file"});
    when({Kind::Open, 3, made, "second"});
    when({Kind::Link, 0, 0, QByteArray("second\0third", 12)});
    EXPECT_EQ(namesAfter(),
        std::set<std::set<QByteArray>>({{"file"}, {}, {"second"}, {"second", "third"}}));
}

TEST_F(DiskTest, FileOfTwoNamesHasOneFate)
{
    when({Kind::Link, 0, 0, QByteArray("file\0other", 10)});
    whenSynced(2);
    whenWritten(0, "1234");
    for (quint32 seed = 0; seed < seeds; ++seed) {
        const Tree tree = disk.afterCut(Chance(seed));
        EXPECT_EQ(tree.files.at("file"), tree.files.at("other"));
    }
}

TEST_F(DiskTest, FolderThatIsLostTakesWhatWasSyncedInIt)
{
    when({Kind::Mkdir, 0, 0, "folder"});
    when({Kind::Open, 3, O_RDONLY | O_DIRECTORY, "folder"});
    when({Kind::Open, 4, made, "folder/new"});
    whenSynced(3);
    EXPECT_EQ(after("folder/new"), Contents({gone, ""}));
}

TEST_F(DiskTest, OpenFileOutlivesItsName)
{
    when({Kind::Unlink, 0, 0, "file"});
    whenWritten(0, "1234");
    EXPECT_TRUE(disk.present().files.empty());
}

class RefusedRecordTest : public DiskTest, public testing::WithParamInterface<Record>
{ };

TEST_P(RefusedRecordTest, IsNotGuessedAt)
{
    when({Kind::Mkdir, 0, 0, "folder"});
    EXPECT_THROW(when(GetParam()), std::runtime_error);
}

INSTANTIATE_TEST_SUITE_P(Each, RefusedRecordTest,
    testing::Values(Record{Kind::Open, 3, O_WRONLY, "nowhere"},
        Record{Kind::Open, 3, made, "nowhere/file"}, Record{Kind::Open, 3, made | O_SYNC, "file"},
        Record{Kind::Open, 3, made | O_DSYNC, "file"}, Record{Kind::Open, 3, O_TMPFILE, ""},
        Record{Kind::Rename, 0, 0, QByteArray("file\0folder/file", 16)},
        Record{Kind::Other, 0, 0, "file"}));

} // namespace

} // namespace powercut

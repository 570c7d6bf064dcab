// What the host's file functions say to be on disk when they return, is.

#include "tests/powercut/disk.h"
#include "tests/powercut/recording.h"
#include "tests/powercut/samples.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

using namespace Qt::StringLiterals;

namespace powercut {

namespace {

constexpr quint32 chances = 60;

using Files = std::map<QByteArray, QByteArray>;

class FilesTest : public testing::Test
{
protected:
    static void SetUpTestSuite() { recording = recordSubject(u"files"_s, 0); }

    /// All that is in the state folder after power cuts right behind what was said.
    static std::set<Files> after(const QByteArray &said)
    {
        Disk disk(recording.before);
        for (const Record &record : recording.records) {
            disk.apply(record);
            if (record.kind == Record::Kind::Marker && record.payload == said)
                return leftBy(disk);
        }
        return {};
    }

    static inline Recording recording;

private:
    static std::set<Files> leftBy(const Disk &disk)
    {
        const QByteArray folder = samples::stateFolder.toUtf8();
        std::set<Files> all;
        for (quint32 chance = 0; chance < chances; ++chance) {
            const Tree tree = disk.afterCut(Chance(chance));
            EXPECT_TRUE(tree.folders.contains(folder));
            Files files;
            for (const auto &[path, contents] : tree.files)
                files[path.mid(folder.size() + 1)] = contents;
            all.insert(files);
        }
        return all;
    }
};

TEST_F(FilesTest, FolderIsThereWithThoseAboveIt)
{
    EXPECT_EQ(after("made"), std::set<Files>({{}}));
}

TEST_F(FilesTest, WrittenFileIsThereWhole)
{
    EXPECT_EQ(after("written"), std::set<Files>({{{"one", "first"}}}));
}

TEST_F(FilesTest, ReplacedFileHasItsNewContents)
{
    EXPECT_EQ(after("rewritten"), std::set<Files>({{{"one", "second"}}}));
}

TEST_F(FilesTest, MovedFileHasItsNewName)
{
    EXPECT_EQ(after("moved"), std::set<Files>({{{"two", "second"}}}));
}

TEST_F(FilesTest, RemovedFileStaysAway)
{
    EXPECT_EQ(after("removed"), std::set<Files>({{}}));
}

} // namespace

} // namespace powercut

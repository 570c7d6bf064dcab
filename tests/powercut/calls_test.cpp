// The recorder sees every call that changes what is below its folder.

#include "tests/powercut/replayed.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace powercut {

namespace {

Recording recordCall(const char *call)
{
    return record(QStringLiteral(POWERCUT_CALLS), {u"FOLDER"_s, QString::fromUtf8(call)});
}

class ChangingCallTest : public testing::TestWithParam<const char *>
{ };

TEST_P(ChangingCallTest, ReplayedGivesTheFolderThatIsThere)
{
    const Recording recording = recordCall(GetParam());
    EXPECT_EQ(replayed(recording), recording.left);
}

TEST_P(ChangingCallTest, ChangesTheFolder)
{
    const Tree before{{{"file", "12345678"}}, {"folder"}};
    EXPECT_NE(recordCall(GetParam()).left, before);
}

INSTANTIATE_TEST_SUITE_P(Opening, ChangingCallTest,
    testing::Values("open", "open64", "openat", "openat64", "open emptying", "open appending",
        "open by its whole path", "__open_2", "__open64_2", "__openat_2", "__openat64_2", "creat",
        "creat64", "dup", "dup, the first closed", "dup2", "dup3", "fcntl", "fcntl64",
        "close, the number used again", "open in another thread"));
INSTANTIATE_TEST_SUITE_P(Writing, ChangingCallTest,
    testing::Values("write", "writev", "pwrite", "pwrite64", "pwritev", "pwritev64", "sendfile",
        "sendfile64", "copy_file_range", "copy_file_range at a place", "ftruncate", "ftruncate64",
        "truncate", "truncate64", "fallocate", "fallocate64", "posix_fallocate",
        "posix_fallocate64"));
INSTANTIATE_TEST_SUITE_P(Naming, ChangingCallTest,
    testing::Values("rename", "renameat", "renameat2", "link", "linkat", "unlink", "unlinkat",
        "unlinkat of a folder", "rmdir", "remove", "remove of a folder", "mkdir", "mkdirat"));

class SyncingCallTest : public testing::TestWithParam<const char *>
{ };

TEST_P(SyncingCallTest, IsSeen)
{
    EXPECT_EQ(countOf(recordCall(GetParam()), Record::Kind::Sync), 1);
}

INSTANTIATE_TEST_SUITE_P(
    Each, SyncingCallTest, testing::Values("fsync", "fdatasync", "fsync of a folder"));

TEST(RecordingTest, ProgramThatFailsIsNoRecording)
{
    EXPECT_THROW(recordCall("no such call"), std::runtime_error);
}

TEST(RecordingTest, SwallowedSyncsAreNotSeen)
{
    const auto swallowing = [](const char *call, const QString &swallows) {
        return countOf(record(QStringLiteral(POWERCUT_CALLS),
                           {u"FOLDER"_s, QString::fromUtf8(call)}, swallows),
            Record::Kind::Sync);
    };
    EXPECT_EQ(swallowing("fsync of a folder", u"folders"_s), 0);
    EXPECT_EQ(swallowing("fsync", u"folders"_s), 1);
    EXPECT_EQ(swallowing("fsync", u"ile"_s), 0);
    EXPECT_EQ(swallowing("fdatasync", u"other"_s), 1);
}

} // namespace

} // namespace powercut

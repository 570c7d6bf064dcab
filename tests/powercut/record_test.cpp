// The recorder's log is read to the letter.

#include "tests/powercut/marker.h"
#include "tests/powercut/record.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace powercut {

namespace {

TEST(RecordTest, PayloadMayHoldAnything)
{
    const QByteArray bytes("two\nlines\0and more", 18);
    const auto records
        = readRecords("open 3 65 1\nf\nwrite 3 4096 18\n" + bytes + "\nclose 3 0 0\n\n");
    ASSERT_EQ(records.size(), 3U);
    EXPECT_EQ(records[1].kind, Record::Kind::Write);
    EXPECT_EQ(records[1].opening, 3);
    EXPECT_EQ(records[1].number, 4096);
    EXPECT_EQ(records[1].payload, bytes);
    EXPECT_EQ(records[2].kind, Record::Kind::Close);
}

class BrokenLogTest : public testing::TestWithParam<const char *>
{ };

TEST_P(BrokenLogTest, IsRefused)
{
    EXPECT_THROW(readRecords(GetParam()), std::runtime_error);
}

INSTANTIATE_TEST_SUITE_P(Each, BrokenLogTest,
    testing::Values("open 1 0 4\nfil", "open 1 0 4\nfile", "open 1 0 4\nfiles\n",
        "open 1 0\nfile\n", "paint 1 0 4\nfile\n", "open 1 0 4"));

TEST(RecordTest, IsDescribedForPeople)
{
    EXPECT_EQ(described({Record::Kind::Write, 3, 512, "four"}), u"write 3 at 512, 4 bytes");
    EXPECT_EQ(described({Record::Kind::Rename, 0, 0, QByteArray("a\0b", 3)}), u"rename 0 0 a to b");
}

class StoryTest : public testing::Test
{
protected:
    const std::vector<Record> records{{Record::Kind::Marker, 0, 0, "given 1"},
        {Record::Kind::Sync, 1, 0, {}}, {Record::Kind::Marker, 0, 0, "saved 1 1"},
        {Record::Kind::Marker, 0, 0, "saved 1 2"}};
};

TEST_F(StoryTest, SaysWhatHadReturnedAndWhatHadNot)
{
    const Story story = storyAt(records, 2);
    EXPECT_EQ(story.said, std::vector<QStringList>({{u"given"_s, u"1"_s}}));
    EXPECT_EQ(story.next, QStringList({u"saved"_s, u"1"_s, u"1"_s}));
}

TEST_F(StoryTest, HasNothingNextAtTheEnd)
{
    EXPECT_EQ(storyAt(records, 4).said.size(), 3U);
    EXPECT_FALSE(storyAt(records, 4).next.has_value());
}

TEST(MarkTest, NeedsARecorder)
{
    EXPECT_THROW(mark(u"given 1"_s), std::runtime_error);
}

} // namespace

} // namespace powercut

// What is written carelessly is lost or torn by the same cuts: the laws find what they are for.

#include "tests/powercut/cuts.h"
#include "tests/powercut/samples.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace powercut {

namespace {

constexpr quint32 seed = 3;
constexpr std::size_t cuts = 60;

std::string violationsOf(
    const QString &work, const Law &law, const QString &swallows, const QString &manner = {})
{
    const Recording recording = recordSubject(work, seed, swallows, manner);
    return violations(recording, cutsOf(recording, cuts, seed), seed, law)
        .join(u'\n')
        .toStdString();
}

std::string documentsWith(const QString &swallows, const QString &manner = {})
{
    return violationsOf(u"documents"_s, laws::documentsAreKept, swallows, manner);
}

TEST(ControlTest, HonestDiskLosesNothing)
{
    EXPECT_EQ(documentsWith({}), "");
    EXPECT_EQ(violationsOf(u"journal"_s, laws::journalIsKept, {}), "");
    EXPECT_EQ(violationsOf(u"queue"_s, laws::messagesAreKept, {}), "");
}

TEST(ControlTest, DocumentsThatAreWrittenPlainlyTear)
{
    EXPECT_THAT(documentsWith({}, u"plainly"_s), testing::HasSubstr("the till does not start"));
}

TEST(ControlTest, JournalThatIsWrittenAnewIsLost)
{
    EXPECT_THAT(violationsOf(u"journal"_s, laws::journalIsKept, {}, u"plainly"_s),
        testing::HasSubstr("was on disk and is lost"));
}

TEST(ControlTest, ReplacementWithoutTheFoldersSyncIsLost)
{
    EXPECT_THAT(documentsWith(u"folders"_s), testing::HasSubstr("kept were"));
}

TEST(ControlTest, NumberWithoutTheFoldersSyncIsGivenTwice)
{
    EXPECT_THAT(documentsWith(u"folders"_s), testing::HasSubstr("was the highest number"));
}

TEST(ControlTest, ReplacementWithoutTheFilesSyncTears)
{
    EXPECT_THAT(documentsWith(u"document.json.new"_s), testing::HasSubstr("does not start"));
}

// As the database does with `synchronous` at NORMAL.
TEST(ControlTest, MessagesInALogThatIsNotSyncedAreLost)
{
    EXPECT_THAT(violationsOf(u"queue"_s, laws::messagesAreKept, u"-wal"_s),
        testing::HasSubstr("was enqueued and is missing"));
}

// They are taken in soon, so the cuts are right behind them.
std::string violationsBehindSpilled(const QString &swallows)
{
    constexpr quint32 chances = 8;
    const Recording recording = recordSubject(u"queue"_s, seed, swallows);
    const auto spilled = cutsBehind(recording, {"enqueued 7", "enqueued 14"}, chances);
    EXPECT_EQ(spilled.size(), 2 * chances);
    EXPECT_TRUE(samples::comesWithFullDisk(7) && samples::comesWithFullDisk(14));
    return violations(recording, spilled, seed, laws::messagesAreKept).join(u'\n').toStdString();
}

TEST(ControlTest, SpilledMessagesThatAreNotSyncedAreLost)
{
    EXPECT_THAT(
        violationsBehindSpilled(u".spill"_s), testing::HasSubstr("was enqueued and is missing"));
}

TEST(ControlTest, SpilledMessagesAreKeptWithTheNameOfTheirFile)
{
    EXPECT_EQ(violationsBehindSpilled({}), "");
}

} // namespace

} // namespace powercut

// What is recorded holds what the power cuts are to meet, and nothing of it escapes the recorder.

#include "tests/powercut/replayed.h"

#include <fcntl.h>
#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>

using namespace Qt::StringLiterals;

namespace powercut {

namespace {

constexpr quint32 seed = 20'241'121;

class SubjectTest : public testing::TestWithParam<const char *>
{ };

TEST_P(SubjectTest, ReplayedInFullGivesTheFolderThatIsThere)
{
    const Recording recording = recordSubject(QString::fromUtf8(GetParam()), seed);
    EXPECT_GT(countOf(recording, Record::Kind::Sync), 0);
    EXPECT_EQ(replayed(recording), recording.left);
}

TEST_P(SubjectTest, ReplayedInFullFromTheMiddleToo)
{
    const Recording resumed
        = recordResuming(recordSubject(QString::fromUtf8(GetParam()), seed).left);
    EXPECT_GT(countOf(resumed, Record::Kind::Sync), 0);
    EXPECT_EQ(replayed(resumed), resumed.left);
}

INSTANTIATE_TEST_SUITE_P(Each, SubjectTest, testing::Values("documents", "journal", "queue"));

std::set<std::string> wordsIn(const Recording &recording)
{
    std::set<std::string> words;
    for (const Record &one : recording.records)
        if (one.kind == Record::Kind::Marker)
            words.insert(one.payload.split(' ').first().toStdString());
    return words;
}

/// How often the openings of a file whose name ends so began to write at its begin, the most often.
int beginningsIn(const Recording &recording, const QByteArray &nameEnd)
{
    std::map<int, int> beginnings;
    std::set<int> openings;
    for (const Record &one : recording.records) {
        if (one.kind == Record::Kind::Open && one.payload.endsWith(nameEnd))
            openings.insert(one.opening);
        if (one.kind == Record::Kind::Write && one.number == 0 && openings.contains(one.opening))
            ++beginnings[one.opening];
    }
    int most = 0;
    for (const auto &[opening, count] : beginnings)
        most = std::max(most, count);
    return most;
}

TEST(PremisesTest, DocumentsSeeEverythingThatATillDoes)
{
    EXPECT_EQ(wordsIn(recordSubject(u"documents"_s, seed)),
        std::set<std::string>({"given", "saved", "closed", "cancelled", "restarted"}));
}

TEST(PremisesTest, JournalIsWrittenBackNowAndThen)
{
    EXPECT_EQ(
        wordsIn(recordSubject(u"journal"_s, seed)), std::set<std::string>({"noted", "settled"}));
}

TEST(PremisesTest, QueueIsUsedInEveryWay)
{
    EXPECT_EQ(wordsIn(recordSubject(u"queue"_s, seed)),
        std::set<std::string>({"enqueued", "attempted", "passed", "restarted"}));
}

TEST(PremisesTest, DiskIsFullForSomeMessages)
{
    EXPECT_GT(beginningsIn(recordSubject(u"queue"_s, seed), ".spill"), 0);
}

// The database begins its log anew when all of it was taken into the file, while others read on.
TEST(PremisesTest, LogIsBegunAnew)
{
    EXPECT_GT(beginningsIn(recordSubject(u"queue"_s, seed), "queue.sqlite-wal"), 1);
}

} // namespace

} // namespace powercut

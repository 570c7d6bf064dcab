// Which cuts are made, and what is told of those that lose something.

#include "tests/powercut/cuts.h"

#include <QFile>

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

using namespace Qt::StringLiterals;

namespace powercut {

namespace {

constexpr quint32 seed = 5;

Recording recordingOf(std::vector<Record> records)
{
    return {std::move(records), {}, {}};
}

/// Forty records, of which each fourth is no write.
Recording mixed()
{
    std::vector<Record> records(40, {Record::Kind::Write, 1, 0, {}});
    for (std::size_t record = 3; record < records.size(); record += 4)
        records[record].kind = Record::Kind::Sync;
    return recordingOf(records);
}

std::map<std::size_t, int> timesCutBehind(const std::vector<Cut> &cuts)
{
    std::map<std::size_t, int> times;
    for (const Cut &cut : cuts)
        ++times[cut.record];
    return times;
}

TEST(CutsTest, AreBehindEachRecordAndTwiceBehindThoseThatAreNoWrites)
{
    // Forty behind any, forty behind one of ten.
    const auto times = timesCutBehind(cutsOf(mixed(), 80, seed));
    ASSERT_EQ(times.size(), 40U);
    for (const auto &[record, count] : times)
        EXPECT_EQ(count, record % 4 == 0 ? 5 : 1) << record;
}

TEST(CutsTest, AreInOrderAndTheSameForTheSameSeed)
{
    const auto cuts = cutsOf(mixed(), 30, seed);
    EXPECT_TRUE(std::is_sorted(cuts.begin(), cuts.end()));
    EXPECT_EQ(cuts, cutsOf(mixed(), 30, seed));
    EXPECT_NE(cuts, cutsOf(mixed(), 30, seed + 1));
    EXPECT_NE(cuts[0].chance, cuts[1].chance);
}

TEST(CutsTest, CanBeBehindWhatWasSaid)
{
    const Recording recording = recordingOf({{Record::Kind::Marker, 0, 0, "given 1"},
        {Record::Kind::Open, 1, 0, "given 2"}, {Record::Kind::Marker, 0, 0, "given 2"}});
    EXPECT_EQ(cutsBehind(recording, {"given 2"}, 2), std::vector<Cut>({{3, 0}, {3, 1}}));
}

TEST(ViolationsTest, LawSeesWhatIsOnDiskAndWhatWasSaid)
{
    const Recording recording = recordingOf({{Record::Kind::Open, 1, O_WRONLY | O_CREAT, "file"},
        {Record::Kind::Open, 2, O_DIRECTORY, ""}, {Record::Kind::Sync, 2, 0, {}},
        {Record::Kind::Marker, 0, 0, "made"}, {Record::Kind::Unlink, 0, 0, "file"}});
    int seen = 0;
    const auto law = [&](const QString &folder, quint32 given, const Story &story) {
        ++seen;
        EXPECT_TRUE(QFile::exists(folder + u"/file"_s));
        EXPECT_EQ(given, seed);
        EXPECT_EQ(story.said.size(), seen == 1 ? 0U : 1U);
        return QStringList();
    };
    EXPECT_TRUE(violations(recording, {{3, 0}, {4, 0}}, seed, law).isEmpty());
    EXPECT_EQ(seen, 2);
}

TEST(ViolationsTest, FindingTellsItsCutAndWhatWasDoneLast)
{
    const Recording recording = recordingOf(
        {{Record::Kind::Mkdir, 0, 0, "folder"}, {Record::Kind::Mkdir, 0, 0, "later"}});
    const auto law = [](const QString &, quint32, const Story &) { return QStringList{u"lost"_s}; };
    const QStringList found = violations(recording, {{1, 9}}, seed, law);
    ASSERT_EQ(found.size(), 1);
    EXPECT_EQ(
        found.first(), u"cut behind record 1 of 2, seed 5, chance 9\n    mkdir 0 0 folder\n  lost");
}

TEST(ViolationsOfTwoTest, SecondCutIsToldWithTheFirst)
{
    const Recording recording
        = recordingOf({{Record::Kind::Marker, 0, 0, "given 1"}, {Record::Kind::Mkdir, 0, 0, "x"}});
    const auto law = [](const QString &, quint32, const Story &story) {
        return QStringList{story.said.front().join(u' ')};
    };
    const QStringList found = violationsOfTwo(recording, {{2, 9}}, 3, seed, law);
    ASSERT_EQ(found.size(), 3);
    EXPECT_TRUE(found.first().startsWith(u"cut behind record 2 of 2, seed 5, chance 9\n"));
    EXPECT_TRUE(found.first().contains(u"\n  then cut behind record "));
    EXPECT_TRUE(found.first().endsWith(u"\n  given 1"));
}

} // namespace

} // namespace powercut

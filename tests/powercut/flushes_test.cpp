// Flushes are counted to the step that took them, and a till takes no more than it is argued for in
// docs/state-folder.md.

#include "tests/powercut/flushes.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <sstream>

using namespace Qt::StringLiterals;

namespace powercut {

namespace {

using Kind = Record::Kind;
using Flushes = std::map<QString, int>;

Record told(const QByteArray &command)
{
    return {Kind::Write, 1, 0, "{\"command\":\"" + command + "\"}\n"};
}

const Record transcriptOpened{Kind::Open, 1, 0, "transcript"};
const Record fileOpened{Kind::Open, 2, 0, "state/file"};
const Record folderOpened{Kind::Open, 3, 0, "state"};

std::vector<FlushStep> stepsOf(const std::vector<Record> &records)
{
    return flushSteps(records, "transcript");
}

TEST(FlushStepsTest, FlushesBelongToTheCommandThatIsToldNext)
{
    const auto steps = stepsOf({transcriptOpened, fileOpened, {Kind::Write, 2, 0, "bytes"},
        {Kind::Sync, 2, 0, {}}, {Kind::Sync, 2, 0, {}}, folderOpened, {Kind::Sync, 3, 0, {}},
        told("add 1"), told("total"), {Kind::Sync, 3, 0, {}}});
    ASSERT_EQ(steps.size(), 3U);
    EXPECT_EQ(steps[0].name, u"add 1");
    EXPECT_EQ(steps[0].flushes, Flushes({{u"state/file"_s, 2}, {u"state"_s, 1}}));
    EXPECT_EQ(steps[0].sum(), 3);
    EXPECT_EQ(steps[1].name, u"total");
    EXPECT_EQ(steps[1].sum(), 0);
    EXPECT_EQ(steps[2].name, endStep);
    EXPECT_EQ(steps[2].flushes, Flushes({{u"state"_s, 1}}));
}

TEST(FlushStepsTest, OpeningMayHaveTheNumberOfAnEarlierOne)
{
    const auto steps = stepsOf({{Kind::Open, 2, 0, "old"}, {Kind::Close, 2, 0, {}},
        {Kind::Open, 2, 0, "new"}, {Kind::Sync, 2, 0, {}}});
    EXPECT_EQ(steps.front().flushes, Flushes({{u"new"_s, 1}}));
}

TEST(FlushStepsTest, WhatIsNotUnderstoodIsNotGuessedAt)
{
    EXPECT_THROW(stepsOf({{Kind::Sync, 2, 0, {}}}), std::runtime_error);
    EXPECT_THROW(stepsOf({transcriptOpened, {Kind::Write, 1, 0, "{\"comm"}}), std::runtime_error);
}

TEST(FlushTableTest, HasALineForEachStepAndASumForEachDocument)
{
    std::ostringstream out;
    printFlushes(out,
        {{u"add 1"_s, {{u"state"_s, 1}, {u"file"_s, 2}}}, {u"close"_s, {{u"state"_s, 1}}},
            {u"total"_s, {}}, {u"cancel"_s, {{u"state"_s, 1}}}, {endStep, {}}});
    EXPECT_EQ(out.str(),
        "   3  add 1                  file 2×, state\n"
        "   1  close                  state\n"
        "   4  for the whole document\n\n"
        "   0  total\n"
        "   1  cancel                 state\n"
        "   1  for the whole document\n\n"
        "   0  (end)\n");
}

/// A till that sells cheques of ten positions, once for all cases.
class TillFlushesTest : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        steps = flushesOf(QStringLiteral(POWERCUT_CHEQUES "/ten-positions.till"));
    }

    /// The steps of the n-th document, 0 being the first.
    [[nodiscard]] static std::vector<FlushStep> ofDocument(int place)
    {
        std::vector<FlushStep> found;
        for (const FlushStep &step : steps) {
            if (place == 0)
                found.push_back(step);
            if (step.name == u"close" || step.name == u"cancel")
                --place;
        }
        return found;
    }
    [[nodiscard]] static QStringList counted(const std::vector<FlushStep> &some)
    {
        QStringList lines;
        for (const FlushStep &step : some)
            lines.append(u"%1 %2"_s.arg(step.sum()).arg(step.name));
        return lines;
    }
    /// All of the steps' flushes.
    [[nodiscard]] static Flushes sumOf(const std::vector<FlushStep> &some)
    {
        Flushes sum;
        for (const FlushStep &step : some)
            for (const auto &[path, count] : step.flushes)
                sum[path] += count;
        return sum;
    }

    static inline std::vector<FlushStep> steps;
};

TEST_F(TillFlushesTest, EachStepOfAnOnlineChequeIsCounted)
{
    EXPECT_EQ(counted(ofDocument(1)),
        QStringList({u"4 card 2900000000017"_s, u"2 add 1001"_s, u"2 add 1002 2"_s,
            u"2 add 1003 0.742"_s, u"2 add 1004"_s, u"2 add 1005"_s, u"2 add 1006 1.2"_s,
            u"2 add 1007"_s, u"2 add 1008"_s, u"2 add 1009"_s, u"2 add 1010 2"_s, u"2 total"_s,
            u"2 points 50"_s, u"2 pay card"_s, u"4 close"_s}));
}

TEST_F(TillFlushesTest, OnlineChequeFlushesItsDocumentItsNumberAndTheirFolders)
{
    EXPECT_EQ(sumOf(ofDocument(1)),
        Flushes({{u"state/numbers.json.new"_s, 1}, {u"state/document.json.new"_s, 15},
            {u"state/closed/2.json.new"_s, 1}, {u"state"_s, 16}, {u"state/closed"_s, 1}}));
}

TEST_F(TillFlushesTest, EachStepOfAnOfflineChequeIsCounted)
{
    EXPECT_EQ(counted(ofDocument(3)),
        QStringList({u"0 fault refuse 1"_s, u"4 card 2900000000017"_s, u"2 add 1001"_s,
            u"2 add 1002 2"_s, u"2 add 1003 0.742"_s, u"2 add 1004"_s, u"2 add 1005"_s,
            u"2 add 1006 1.2"_s, u"2 add 1007"_s, u"2 add 1008"_s, u"2 add 1009"_s,
            u"2 add 1010 2"_s, u"0 total"_s, u"2 pay card"_s, u"5 close"_s}));
}

TEST_F(TillFlushesTest, QueuedChequeIsOneFlushMore)
{
    EXPECT_EQ(ofDocument(3).back().flushes,
        Flushes({{u"state/document.json.new"_s, 1}, {u"state/closed/4.json.new"_s, 1},
            {u"state"_s, 1}, {u"state/closed"_s, 1}, {u"state/queue/queue.sqlite-wal"_s, 1}}));
}

TEST_F(TillFlushesTest, FirstOneThatATillQueuesBeginsTheLogToo)
{
    EXPECT_EQ(counted({ofDocument(2).back()}), QStringList{u"7 close"_s});
}

TEST_F(TillFlushesTest, CancelledDocumentIsFlushedAway)
{
    EXPECT_EQ(counted({ofDocument(4).back()}), QStringList{u"1 cancel"_s});
}

TEST_F(TillFlushesTest, DeliveryCountsTheAttemptAndNotesTheOutcome)
{
    constexpr int messages = 2;
    const FlushStep delivery = ofDocument(5).front();
    EXPECT_EQ(delivery.name, u"deliver");
    EXPECT_EQ(delivery.flushes, Flushes({{u"state/queue/queue.sqlite-wal"_s, messages + 1}}));
}

TEST_F(TillFlushesTest, EndOfTheShiftIsMarked)
{
    EXPECT_EQ(
        counted(ofDocument(5)), QStringList({u"3 deliver"_s, u"2 close-shift"_s, u"2 (end)"_s}));
}

TEST_F(TillFlushesTest, JournalReceiptsAndLogAreNeverFlushed)
{
    for (const auto &[path, count] : sumOf(steps))
        for (const QString &name : {u"journal"_s, u"receipts/"_s, u"log/"_s})
            EXPECT_FALSE(path.startsWith(u"state/"_s + name)) << path.toStdString();
}

} // namespace

} // namespace powercut

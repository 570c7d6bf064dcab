// When the queue needs a person.

#include "tests/support/hostfixture.h"
#include "tests/support/printers.h"
#include "till/queue/backlog.h"
#include "till/queue/statusreport.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace till;

namespace {

const QDateTime now(QDate(2024, 3, 5), QTime(17, 0), Qt::UTC);
constexpr int hour = 3600;
constexpr int day = 24 * hour;

struct Case
{
    int age; ///< seconds; negative: nothing waits
    qint64 refused;
    qint64 parked;
    qint64 moved;
    BacklogLevel level;
};

QueueOffice::Status statusOf(const Case &entry)
{
    QueueOffice::Status status;
    status.counts = {{MessageState::Refused, entry.refused}, {MessageState::Parked, entry.parked}};
    status.moved = entry.moved;
    if (entry.age >= 0)
        status.oldestWaiting = now.addSecs(-entry.age);
    return status;
}

TEST(BacklogTest, LevelsByAgeAndByWhatWaitsForAPerson)
{
    const QList<Case> table{{-1, 0, 0, 0, BacklogLevel::Good}, {0, 0, 0, 0, BacklogLevel::Good},
        {hour, 0, 0, 0, BacklogLevel::Good}, {hour + 1, 0, 0, 0, BacklogLevel::Warning},
        {day, 0, 0, 0, BacklogLevel::Warning}, {day + 1, 0, 0, 0, BacklogLevel::Alarm},
        {-1, 1, 0, 0, BacklogLevel::Alarm}, {-1, 0, 1, 0, BacklogLevel::Alarm},
        {-1, 0, 2, 1, BacklogLevel::Alarm}, {-1, 0, 2, 2, BacklogLevel::Good}};
    for (const Case &entry : table) {
        const Backlog backlog = judgeBacklog(statusOf(entry), now, {});
        EXPECT_EQ(backlog.level, entry.level) << entry.age << ' ' << entry.parked;
        EXPECT_EQ(backlog.reason.isEmpty(), entry.level == BacklogLevel::Good);
    }
}

TEST(BacklogTest, SharedQueueThatIsNotSeenIsAWarningAtLeast)
{
    auto status = statusOf({-1, 0, 0, 0, BacklogLevel::Good});
    status.unreached = {tr::undefined, u"postgresql://till@shop:5432/queue: away"_s};
    const Backlog backlog = judgeBacklog(status, now, {});
    EXPECT_EQ(backlog.level, BacklogLevel::Warning);
    EXPECT_TRUE(backlog.reason.ui().contains(status.unreached.ui()));
    status.counts[MessageState::Refused] = 1;
    EXPECT_EQ(judgeBacklog(status, now, {}).level, BacklogLevel::Alarm);
}

TEST(BacklogTest, AClockThatWasSetBackMakesNothingOld)
{
    QueueOffice::Status status;
    status.oldestWaiting = now.addSecs(day);
    EXPECT_EQ(ageOfOldest(status, now).count(), 0);
}

class BacklogLimitsTest : public testing::Test, public HostFixture
{ };

TEST_F(BacklogLimitsTest, TheyAreConfigured)
{
    EXPECT_EQ(BacklogLimits::configured().warning.count(), 60);
    EXPECT_EQ(BacklogLimits::configured().alarm.count(), 1440);
    givenSetting(u"Queue:warnMinutes"_s, u"5"_s);
    givenSetting(u"Queue:alarmMinutes"_s, u"-5"_s);
    EXPECT_EQ(BacklogLimits::configured().warning.count(), 5);
    EXPECT_EQ(BacklogLimits::configured().alarm.count(), 0);
}

TEST(StatusReportTest, PeopleReadEveryFigure)
{
    QueueOffice::Status status = statusOf({61, 0, 2, 2, BacklogLevel::Good});
    status.counts[MessageState::Pending] = 12;
    status.spilled = 3;
    status.unreached = {tr::undefined, u"postgresql://shop: no answer"_s};
    status.waitingHere = 4;
    status.lastError = u"HTTP 503\nbusy"_s;
    status.lastErrorTime = now;
    const QString text = statusText(status, now, judgeBacklog(status, now, {}));
    for (const QString &line : {u"pending      12"_s, u"parked       2"_s,
             u"moved        2 of the parked ones"_s, u"spilled      3 of the pending ones: "_s,
             u"unreached    postgresql://shop: no answer"_s, u"here         4 on this machine"_s,
             u"(1 min ago)"_s, u"(HTTP 503 busy)"_s, u"last success none"_s})
        EXPECT_TRUE(text.contains(line)) << qPrintable(text);
}

TEST(StatusReportTest, WhatIsAsUsualHasNoLine)
{
    const QString text = statusText({}, now, {});
    for (const QString &name : {u"moved"_s, u"spilled"_s, u"unreached"_s, u"here"_s})
        EXPECT_FALSE(text.contains(u'\n' + name)) << qPrintable(text);
}

TEST(StatusReportTest, ProgramsReadEveryFigure)
{
    QueueOffice::Status status = statusOf({61, 1, 0, 0, BacklogLevel::Alarm});
    status.lastError = u"busy"_s;
    status.lastErrorTime = now;
    status.lastSuccess = now.addSecs(-1);
    status.spilled = 3;
    status.unreached = {tr::undefined, u"no answer"_s};
    status.waitingHere = 4;
    const Json object = statusObject(status, now, judgeBacklog(status, now, {}));
    EXPECT_EQ(object["oldest"], "2024-03-05T16:58:59Z");
    EXPECT_EQ(object["oldestSeconds"], 61);
    EXPECT_EQ(object["lastError"], "busy");
    EXPECT_EQ(object["lastErrorTime"], "2024-03-05T17:00:00Z");
    EXPECT_EQ(object["lastSuccess"], "2024-03-05T16:59:59Z");
    EXPECT_EQ(object["counts"]["refused"], 1);
    EXPECT_EQ(object["spilled"], 3);
    EXPECT_EQ(object["unreached"], "no answer");
    EXPECT_EQ(object["waitingHere"], 4);
    EXPECT_EQ(object["level"], "alarm");
}

} // namespace

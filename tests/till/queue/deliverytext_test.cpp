// What a pass of delivery is told as, and when the service looks again.

#include "tests/support/printers.h"
#include "till/queue/deliverytext.h"
#include "till/queue/progressline.h"
#include "till/queue/watch.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace till;

namespace {

DeliveryReport reportOf(int delivered, int refused, int failed, int parked)
{
    DeliveryReport report;
    report.delivered = delivered;
    report.refused = refused;
    report.failed = failed;
    report.parked = parked;
    return report;
}

TEST(DeliveryTextTest, EveryFigureIsTold)
{
    const DeliveryReport report = reportOf(1, 2, 3, 4);
    const DeliveryRest rest{5, 2, false};
    EXPECT_EQ(
        deliveryText(report, rest), u"delivered 1, refused 2, failed 3, parked 4; waiting 5"_s);
    EXPECT_EQ(deliveryObject(report, rest), Json::parse(R"({"delivered": 1, "refused": 2,
        "failed": 3, "parked": 4, "waiting": 5, "spilled": 2, "busy": false, "stopped": false,
        "unauthorised": false})"));
}

TEST(DeliveryTextTest, StatusIsGoodOnlyWhenAllWasDelivered)
{
    DeliveryReport busy;
    busy.busy = true;
    EXPECT_EQ(deliveryStatus({}, {}), ExitStatus::Success);
    EXPECT_EQ(deliveryStatus(reportOf(5, 0, 0, 0), {3, 0, false}), ExitStatus::Success);
    EXPECT_EQ(deliveryStatus(reportOf(5, 0, 0, 0), {3, 1, false}), ExitStatus::NotAllDone);
    EXPECT_EQ(deliveryStatus(reportOf(5, 0, 0, 0), {3, 0, true}), ExitStatus::NotAllDone);
    EXPECT_EQ(deliveryStatus(reportOf(5, 0, 0, 0), {0, 0, true}), ExitStatus::Success);
    for (const DeliveryReport &report :
        {reportOf(5, 1, 0, 0), reportOf(5, 0, 1, 0), reportOf(5, 0, 0, 1), busy})
        EXPECT_EQ(deliveryStatus(report, {}), ExitStatus::NotAllDone);
}

TEST(DeliveryTextTest, EachTroubleHasItsAdvice)
{
    EXPECT_TRUE(deliveryAdvice(reportOf(5, 0, 1, 0), {3, 0, false}).isEmpty());
    const auto advice
        = [](const DeliveryReport &report) { return deliveryAdvice(report, {}).join(u'\n'); };
    EXPECT_TRUE(deliveryAdvice({}, {3, 2, false}).value(0).contains(u"cannot take 2 messages"_s));
    EXPECT_TRUE(advice(reportOf(0, 1, 0, 0)).contains(u"queue list"_s));
    EXPECT_TRUE(advice(reportOf(0, 0, 0, 1)).contains(u"queue list"_s));
    DeliveryReport report;
    report.unauthorised = true;
    EXPECT_TRUE(advice(report).contains(u"korvel-till queue reauthorise"_s));
    report = {};
    report.stopped = true;
    EXPECT_TRUE(advice(report).contains(u"not reached"_s));
    report = {};
    report.busy = true;
    EXPECT_TRUE(advice(report).contains(u"another program"_s));
}

TEST(DeliveryTextTest, EachOutcomeIsSomethingDone)
{
    EXPECT_FALSE(didSomething({}));
    for (const DeliveryReport &report :
        {reportOf(1, 0, 0, 0), reportOf(0, 1, 0, 0), reportOf(0, 0, 1, 0), reportOf(0, 0, 0, 1)})
        EXPECT_TRUE(didSomething(report));
}

TEST(ProgressLineTest, TheBarFillsUp)
{
    const QString empty(30, u'.');
    EXPECT_EQ(ProgressLine::text({}, 0), u"["_s + empty + u"] 0/1, not delivered 0"_s);
    EXPECT_EQ(ProgressLine::text(reportOf(1, 0, 0, 0), 3),
        u"["_s + QString(10, u'#') + QString(20, u'.') + u"] 1/3, not delivered 0"_s);
    EXPECT_EQ(ProgressLine::text(reportOf(1, 1, 1, 1), 3),
        u"["_s + QString(30, u'#') + u"] 4/4, not delivered 3"_s);
}

TEST(PauseBehindTest, UntilSomethingIsDueWithinLimits)
{
    const QDateTime now(QDate(2024, 3, 5), QTime(17, 0), Qt::UTC);
    const DeliveryReport nothing;
    const DeliveryReport something = reportOf(0, 0, 1, 0);
    struct Case
    {
        DeliveryReport report;
        QDateTime nextDue;
        std::chrono::milliseconds pause;
    };
    const QList<Case> table{{nothing, {}, watchpause::longest},
        {something, {}, watchpause::longest}, {nothing, now.addMSecs(5000), 5000ms},
        {something, now.addMSecs(5000), 5000ms}, {nothing, now.addMSecs(500), 1000ms},
        {something, now.addMSecs(500), 500ms}, {nothing, now.addMSecs(-500), 1000ms},
        {something, now.addMSecs(-500), 0ms}, {nothing, now.addDays(9), watchpause::longest},
        {something, now.addMSecs(30001), 30000ms}};
    for (const Case &entry : table)
        EXPECT_EQ(pauseBehind(entry.report, now, entry.nextDue), entry.pause);
}

} // namespace

// The figures as OpenMetrics.

#include "tests/support/printers.h"
#include "till/queue/metrics.h"
#include "till/version.h"

#include <QMap>
#include <QRegularExpression>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace till;

namespace {

const QDateTime now(QDate(2024, 3, 5), QTime(17, 0), Qt::UTC);

/// Reads OpenMetrics text and complains of what is against its grammar.
class Exposition
{
public:
    explicit Exposition(const QString &text)
    {
        QStringList lines = text.split(u'\n');
        EXPECT_EQ(lines.takeLast(), u""_s) << "the last line has no end";
        EXPECT_EQ(lines.takeLast(), u"# EOF"_s);
        for (const QString &line : lines)
            line.startsWith(u'#') ? readDescription(line) : readSample(line);
        for (const QString &family : m_types.keys())
            EXPECT_TRUE(m_helps.contains(family)) << qPrintable(family);
    }

    QMap<QString, qint64> samples; ///< by name and labels

private:
    void readDescription(const QString &line)
    {
        static const QRegularExpression pattern(
            u"^# (TYPE|UNIT|HELP) ([a-zA-Z_:][a-zA-Z0-9_:]*) (\\S.*)$"_s);
        const auto match = pattern.match(line);
        ASSERT_TRUE(match.hasMatch()) << qPrintable(line);
        m_family = match.captured(2);
        const QString kind = match.captured(1);
        if (kind == u"TYPE"_s) {
            EXPECT_EQ(match.captured(3), u"gauge"_s);
            EXPECT_FALSE(m_types.contains(m_family)) << "described twice";
            m_types[m_family] = match.captured(3);
        } else if (kind == u"UNIT"_s) {
            EXPECT_TRUE(m_family.endsWith(u'_' + match.captured(3))) << qPrintable(line);
        } else {
            m_helps.append(m_family);
        }
    }
    void readSample(const QString &line)
    {
        static const QRegularExpression pattern(
            u"^([a-zA-Z_:][a-zA-Z0-9_:]*)(\\{[a-z_]+=\"[^\"\\\\]*\"\\})? (-?[0-9]+)$"_s);
        const auto match = pattern.match(line);
        ASSERT_TRUE(match.hasMatch()) << qPrintable(line);
        EXPECT_EQ(match.captured(1), m_family) << "a sample outside its family";
        const QString key = match.captured(1) + match.captured(2);
        EXPECT_FALSE(samples.contains(key)) << qPrintable(key);
        samples[key] = match.captured(3).toLongLong();
    }

    QString m_family;
    QMap<QString, QString> m_types;
    QStringList m_helps;
};

TEST(MetricsTest, EveryFigureIsASample)
{
    QueueOffice::Status status;
    status.counts = {{MessageState::Pending, 12}, {MessageState::Refused, 1}};
    status.moved = 3;
    status.spilled = 4;
    status.waitingHere = 5;
    status.oldestWaiting = now.addSecs(-61);
    status.lastSuccess = QDateTime::fromSecsSinceEpoch(1000);
    status.lastErrorTime = QDateTime::fromSecsSinceEpoch(2000);
    const QMap<QString, qint64> wanted{{u"korvel_queue_messages{state=\"pending\"}"_s, 12},
        {u"korvel_queue_messages{state=\"sending\"}"_s, 0},
        {u"korvel_queue_messages{state=\"delivered\"}"_s, 0},
        {u"korvel_queue_messages{state=\"refused\"}"_s, 1},
        {u"korvel_queue_messages{state=\"parked\"}"_s, 0}, {u"korvel_queue_moved_messages"_s, 3},
        {u"korvel_queue_spilled_messages"_s, 4}, {u"korvel_queue_waiting_here_messages"_s, 5},
        {u"korvel_queue_oldest_waiting_age_seconds"_s, 61},
        {u"korvel_queue_last_success_timestamp_seconds"_s, 1000},
        {u"korvel_queue_last_error_timestamp_seconds"_s, 2000}, {u"korvel_queue_level"_s, 2},
        {u"korvel_till_info{version=\"%1\"}"_s.arg(QString::fromLatin1(till::version())), 1},
        {u"korvel_till_loyalty_enabled"_s, 1}};
    EXPECT_EQ(Exposition(metricsText(status, now, BacklogLevel::Alarm, true)).samples, wanted);
}

TEST(MetricsTest, UnitsAreDescribed)
{
    const QString text = metricsText({}, now, BacklogLevel::Good, true);
    EXPECT_EQ(text.count(u"# UNIT "_s), 3);
}

TEST(MetricsTest, ATimeThatNeverCameHasNoSample)
{
    const Exposition metrics(metricsText({}, now, BacklogLevel::Good, true));
    EXPECT_FALSE(metrics.samples.contains(u"korvel_queue_last_success_timestamp_seconds"_s));
    EXPECT_EQ(metrics.samples[u"korvel_queue_oldest_waiting_age_seconds"_s], 0);
}

TEST(MetricsTest, ATillWithoutLoyaltySaysSo)
{
    const Exposition metrics(metricsText({}, now, BacklogLevel::Good, false));
    EXPECT_EQ(metrics.samples.value(u"korvel_till_loyalty_enabled"_s, -1), 0);
}

} // namespace

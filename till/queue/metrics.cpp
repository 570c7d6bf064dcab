#include "till/queue/metrics.h"

#include "till/version.h"

using namespace Qt::StringLiterals;

namespace till {

namespace {

const QList<MessageState> states{MessageState::Pending, MessageState::Sending,
    MessageState::Delivered, MessageState::Refused, MessageState::Parked};

const QString seconds = u"seconds"_s;

/// A family of gauges: its description, and then its samples.
class Family
{
public:
    Family(const QString &name, const QString &help, const QString &unit = {})
        : m_name(u"korvel_"_s + name)
        , m_text(u"# TYPE %1 gauge\n"_s.arg(m_name))
    {
        // The unit is the end of the name, too.
        if (!unit.isEmpty())
            m_text += u"# UNIT %1 %2\n"_s.arg(m_name, unit);
        m_text += u"# HELP %1 %2\n"_s.arg(m_name, help);
    }

    Family &sample(qint64 value, const QString &labels = {})
    {
        m_text += m_name + labels + u' ' + QString::number(value) + u'\n';
        return *this;
    }
    /// A time that never came has no sample.
    Family &time(const QDateTime &time)
    {
        return time.isValid() ? sample(time.toSecsSinceEpoch()) : *this;
    }
    [[nodiscard]] QString text() const { return m_text; }

private:
    QString m_name;
    QString m_text;
};

QString countsText(const QueueOffice::Status &status)
{
    Family counts(u"queue_messages"_s, u"Messages of the outgoing queue by state."_s);
    for (const MessageState state : states)
        counts.sample(status.counts.value(state), u"{state=\"%1\"}"_s.arg(stateName(state)));
    return counts.text();
}

QString figureText(const QString &name, const QString &help, qint64 value, const QString &unit = {})
{
    return Family(name, help, unit).sample(value).text();
}

QString besideText(const QueueOffice::Status &status)
{
    return figureText(u"queue_moved_messages"_s,
               u"Parked messages that were moved to another queue."_s, status.moved)
        + figureText(u"queue_spilled_messages"_s,
            u"Pending messages that the queue's file could not take yet."_s, status.spilled)
        + figureText(u"queue_waiting_here_messages"_s,
            u"Messages of this machine that have to move to a shared queue."_s, status.waitingHere);
}

QString timesText(const QueueOffice::Status &status, const QDateTime &now)
{
    return figureText(u"queue_oldest_waiting_age_seconds"_s,
               u"How long the oldest waiting message has waited; 0 when none waits."_s,
               ageOfOldest(status, now).count(), seconds)
        + Family(u"queue_last_success_timestamp_seconds"_s, u"When a message was delivered last."_s,
            seconds)
              .time(status.lastSuccess)
              .text()
        + Family(
            u"queue_last_error_timestamp_seconds"_s, u"When an attempt failed last."_s, seconds)
              .time(status.lastErrorTime)
              .text();
}

// A gauge, not an "info": collectors that know the older text format alone would refuse the file.
QString tillText(bool isLoyaltyOn)
{
    return Family(u"till_info"_s, u"The version of the till."_s)
               .sample(1, u"{version=\"%1\"}"_s.arg(QString::fromLatin1(version())))
               .text()
        + figureText(u"till_loyalty_enabled"_s,
            u"1: the till sells with loyalty, 0: it is switched off."_s, isLoyaltyOn ? 1 : 0);
}

} // namespace

QString metricsText(
    const QueueOffice::Status &status, const QDateTime &now, BacklogLevel level, bool isLoyaltyOn)
{
    return tillText(isLoyaltyOn) + countsText(status) + besideText(status) + timesText(status, now)
        + figureText(u"queue_level"_s, u"0: good, 1: warning, 2: alarm."_s, static_cast<int>(level))
        + u"# EOF\n"_s;
}

} // namespace till

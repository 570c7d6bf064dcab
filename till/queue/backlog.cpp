#include "till/queue/backlog.h"

#include "host/config/config.h"

using namespace Qt::StringLiterals;

namespace till {

namespace {

std::chrono::minutes minutes(const QString &setting, std::chrono::minutes usual)
{
    const int count
        = Singleton<Config>::instance()->getInt(setting, static_cast<int>(usual.count()));
    return std::chrono::minutes(qMax(0, count));
}

QString tooOld(std::chrono::minutes limit)
{
    return u"messages have waited for more than %1 minutes; see korvel-till queue list for the "
           u"reasons"_s.arg(limit.count());
}

} // namespace

BacklogLimits BacklogLimits::configured()
{
    const BacklogLimits usual;
    return {minutes(u"Queue:warnMinutes"_s, usual.warning),
        minutes(u"Queue:alarmMinutes"_s, usual.alarm)};
}

qint64 waitingForAPerson(const QueueOffice::Status &status)
{
    return status.counts.value(MessageState::Refused) + status.counts.value(MessageState::Parked)
        - status.moved;
}

std::chrono::seconds ageOfOldest(const QueueOffice::Status &status, const QDateTime &now)
{
    if (!status.oldestWaiting.isValid())
        return {};
    return std::chrono::seconds(qMax<qint64>(0, status.oldestWaiting.secsTo(now)));
}

Backlog judgeBacklog(
    const QueueOffice::Status &status, const QDateTime &now, const BacklogLimits &limits)
{
    if (const qint64 count = waitingForAPerson(status); count > 0)
        return {BacklogLevel::Alarm,
            u"refused or parked messages that a person must look at: %1; see korvel-till queue "
            u"list --state-of refused parked"_s.arg(count)};
    const auto age = ageOfOldest(status, now);
    if (age > limits.alarm)
        return {BacklogLevel::Alarm, tooOld(limits.alarm)};
    if (age > limits.warning)
        return {BacklogLevel::Warning, tooOld(limits.warning)};
    if (!status.unreached.isEmpty())
        return {BacklogLevel::Warning,
            u"the shared queue cannot be reached, and its messages are not seen: %1; this "
            u"machine's "
            u"wait here meanwhile; look at the server and the network"_s.arg(status.unreached)};
    return {};
}

QString levelName(BacklogLevel level)
{
    switch (level) {
    case BacklogLevel::Good:
        return u"good"_s;
    case BacklogLevel::Warning:
        return u"warning"_s;
    case BacklogLevel::Alarm:
        break;
    }
    return u"alarm"_s;
}

} // namespace till

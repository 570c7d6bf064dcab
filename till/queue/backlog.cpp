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

tr::Tr tooOld(std::chrono::minutes limit)
{
    return tr::Tr(u"queueTooOld"_s,
        u"сообщения ждут отправки дольше, чем %1 мин; причины покажет korvel-till queue list"_s)
        .arg(QString::number(limit.count()));
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
            tr::Tr(u"queueNeedsPerson"_s,
                u"отклонённые и отложенные сообщения, которыми должен заняться человек: %1; "
                u"смотрите korvel-till queue list --state-of refused parked"_s)
                .arg(QString::number(count))};
    const auto age = ageOfOldest(status, now);
    if (age > limits.alarm)
        return {BacklogLevel::Alarm, tooOld(limits.alarm)};
    if (age > limits.warning)
        return {BacklogLevel::Warning, tooOld(limits.warning)};
    if (!status.unreached.isEmpty())
        return {BacklogLevel::Warning,
            tr::Tr(u"queueUnreached"_s,
                u"нет связи с общей очередью, её сообщения не видны: %1; сообщения этой машины "
                u"пока ждут здесь; проверьте сервер и сеть"_s)
                .arg(status.unreached)};
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

tr::Tr levelText(BacklogLevel level)
{
    switch (level) {
    case BacklogLevel::Good:
        return {u"queueLevelGood"_s, u"порядок"_s};
    case BacklogLevel::Warning:
        return {u"queueLevelWarning"_s, u"внимание"_s};
    case BacklogLevel::Alarm:
        break;
    }
    return {u"queueLevelAlarm"_s, u"тревога"_s};
}

} // namespace till

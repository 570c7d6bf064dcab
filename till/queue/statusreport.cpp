#include "till/queue/statusreport.h"

#include "till/queue/messagetext.h"

using namespace Qt::StringLiterals;

namespace till {

namespace {

const QList<MessageState> states{MessageState::Pending, MessageState::Sending,
    MessageState::Delivered, MessageState::Refused, MessageState::Parked};

constexpr int nameWidth = 12;

QString line(const QString &name, const QString &value)
{
    return name.leftJustified(nameWidth) + u' ' + value + u'\n';
}

QString orNone(const QString &text)
{
    return text.isEmpty() ? u"none"_s : text;
}

QString oldestText(const QueueOffice::Status &status, const QDateTime &now)
{
    if (!status.oldestWaiting.isValid())
        return u"none"_s;
    const auto age = std::chrono::duration_cast<std::chrono::minutes>(ageOfOldest(status, now));
    return u"%1 (%2 min ago)"_s.arg(timeText(status.oldestWaiting)).arg(age.count());
}

QString besideText(const QueueOffice::Status &status)
{
    QString text;
    if (status.spilled > 0)
        text += line(u"spilled"_s,
            u"%1 of the pending ones: the queue's file cannot take them, and they are not sent "
            u"before it can; see the log for the reason"_s.arg(status.spilled));
    if (!status.unreached.isEmpty())
        text += line(u"unreached"_s, status.unreached.simplified());
    if (status.waitingHere > 0)
        text += line(u"here"_s,
            u"%1 on this machine have to move to the shared queue"_s.arg(status.waitingHere));
    return text;
}

QString errorText(const QueueOffice::Status &status)
{
    return status.lastError.isEmpty()
        ? u"none"_s
        : u"%1 (%2)"_s.arg(timeText(status.lastErrorTime), status.lastError.simplified());
}

Json timeOf(const QDateTime &time)
{
    return dateTimeToJson(time.toUTC());
}

} // namespace

QString statusText(const QueueOffice::Status &status, const QDateTime &now, const Backlog &backlog)
{
    QString text;
    for (const MessageState state : states)
        text += line(stateName(state), QString::number(status.counts.value(state)));
    if (status.moved > 0)
        text += line(u"moved"_s, u"%1 of the parked ones"_s.arg(status.moved));
    text += besideText(status);
    text += line(u"oldest"_s, oldestText(status, now));
    text += line(u"last error"_s, errorText(status));
    text += line(u"last success"_s, orNone(timeText(status.lastSuccess)));
    return text
        + line(levelName(backlog.level),
            backlog.reason.isEmpty() ? u"nothing needs attention"_s : backlog.reason);
}

Json statusObject(const QueueOffice::Status &status, const QDateTime &now, const Backlog &backlog)
{
    Json counts = Json::object();
    for (const MessageState state : states)
        counts[toJson(stateName(state))] = status.counts.value(state);
    return {{"counts", counts}, {"moved", status.moved}, {"spilled", status.spilled},
        {"waitingHere", status.waitingHere}, {"unreached", toJson(status.unreached)},
        {"oldest", timeOf(status.oldestWaiting)},
        {"oldestSeconds", ageOfOldest(status, now).count()},
        {"lastError", toJson(status.lastError)}, {"lastErrorTime", timeOf(status.lastErrorTime)},
        {"lastSuccess", timeOf(status.lastSuccess)}, {"level", toJson(levelName(backlog.level))},
        {"reason", toJson(backlog.reason)}};
}

} // namespace till

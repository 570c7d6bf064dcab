#include "till/queue/statusreport.h"

#include "till/queue/messagetext.h"
#include "till/queue/queuetexts.h"

#include <QPair>

using namespace Qt::StringLiterals;

namespace till {

namespace {

const QList<MessageState> states{MessageState::Pending, MessageState::Sending,
    MessageState::Delivered, MessageState::Refused, MessageState::Parked};

using Line = QPair<QString, QString>; // name and value

Line line(const tr::Tr &name, const QString &value)
{
    return {name.ui(), value};
}

// The values one below the other.
QString linesText(const QList<Line> &lines)
{
    qsizetype width = 0;
    for (const auto &[name, value] : lines)
        width = qMax(width, name.size());
    QString text;
    for (const auto &[name, value] : lines)
        text += name.leftJustified(width) + u' ' + value + u'\n';
    return text;
}

QString orNone(const QString &text)
{
    return text.isEmpty() ? queuetexts::none.ui() : text;
}

QString oldestText(const QueueOffice::Status &status, const QDateTime &now)
{
    if (!status.oldestWaiting.isValid())
        return queuetexts::none.ui();
    const auto age = std::chrono::duration_cast<std::chrono::minutes>(ageOfOldest(status, now));
    return tr::Tr(u"queueOldest"_s, u"%1 (%2 мин назад)"_s)
        .arg(timeText(status.oldestWaiting))
        .arg(QString::number(age.count()))
        .ui();
}

QList<Line> besideLines(const QueueOffice::Status &status)
{
    QList<Line> lines;
    if (status.spilled > 0)
        lines.append(line({u"queueLineSpilled"_s, u"вне файла"_s},
            tr::Tr(u"queueSpilled"_s,
                u"%1 из ожидающих: файл очереди не может их принять, и до тех пор они не "
                u"отправляются; причина в журнале программы"_s)
                .arg(QString::number(status.spilled))
                .ui()));
    if (!status.unreached.isEmpty())
        lines.append(
            line({u"queueLineUnreached"_s, u"нет связи"_s}, status.unreached.ui().simplified()));
    if (status.waitingHere > 0)
        lines.append(line({u"queueLineHere"_s, u"здесь"_s},
            tr::Tr(u"queueWaitingHere"_s, u"%1 на этой машине ещё не перенесено в общую очередь"_s)
                .arg(QString::number(status.waitingHere))
                .ui()));
    return lines;
}

QString errorText(const QueueOffice::Status &status)
{
    return status.lastError.isEmpty()
        ? queuetexts::none.ui()
        : u"%1 (%2)"_s.arg(timeText(status.lastErrorTime), status.lastError.simplified());
}

Json timeOf(const QDateTime &time)
{
    return dateTimeToJson(time.toUTC());
}

} // namespace

QString statusText(const QueueOffice::Status &status, const QDateTime &now, const Backlog &backlog)
{
    QList<Line> lines;
    for (const MessageState state : states)
        lines.append({stateName(state), QString::number(status.counts.value(state))});
    if (status.moved > 0)
        lines.append(line({u"queueLineMoved"_s, u"перенесено"_s},
            tr::Tr(u"queueMoved"_s, u"%1 из отложенных"_s)
                .arg(QString::number(status.moved))
                .ui()));
    lines += besideLines(status);
    lines.append(line({u"queueLineOldest"_s, u"самое старое"_s}, oldestText(status, now)));
    lines.append(line({u"queueLineLastError"_s, u"последняя ошибка"_s}, errorText(status)));
    lines.append(line(
        {u"queueLineLastSuccess"_s, u"последняя удача"_s}, orNone(timeText(status.lastSuccess))));
    lines.append(line(levelText(backlog.level),
        backlog.reason.isEmpty() ? tr::Tr(u"queueNothingNeeded"_s, u"ничего делать не нужно"_s).ui()
                                 : backlog.reason.ui()));
    return linesText(lines);
}

Json statusObject(const QueueOffice::Status &status, const QDateTime &now, const Backlog &backlog)
{
    Json counts = Json::object();
    for (const MessageState state : states)
        counts[toJson(stateName(state))] = status.counts.value(state);
    return {{"counts", counts}, {"moved", status.moved}, {"spilled", status.spilled},
        {"waitingHere", status.waitingHere}, {"unreached", toJson(status.unreached.ru())},
        {"oldest", timeOf(status.oldestWaiting)},
        {"oldestSeconds", ageOfOldest(status, now).count()},
        {"lastError", toJson(status.lastError)}, {"lastErrorTime", timeOf(status.lastErrorTime)},
        {"lastSuccess", timeOf(status.lastSuccess)}, {"level", toJson(levelName(backlog.level))},
        {"reason", toJson(backlog.reason.ru())}};
}

} // namespace till

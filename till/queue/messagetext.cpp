#include "till/queue/messagetext.h"

#include "host/text/plaintext.h"

#include <QPair>

using namespace Qt::StringLiterals;

namespace till {

namespace {

using Line = QPair<QString, QString>;

QString countText(int count)
{
    return count == 0 ? QString() : QString::number(count);
}

QList<Line> linesOf(const QueueMessage &message)
{
    const bool isPending = message.state == MessageState::Pending;
    return {{u"id"_s, message.id}, {u"queue"_s, message.queue},
        {u"state"_s, stateName(message.state)}, {u"remark"_s, message.remark},
        {u"till"_s, message.lane}, {u"document"_s, message.correlationId},
        {u"enqueued"_s, timeText(message.enqueued)},
        {u"attempts"_s, QString::number(message.attempts)},
        {u"last attempt"_s, timeText(message.lastAttempt)},
        {u"next attempt"_s, isPending ? timeText(message.nextAttempt) : QString()},
        {u"last error"_s, message.lastError}, {u"code"_s, countText(message.lastCode)},
        {u"other answers since"_s, timeText(message.answeredOtherwiseSince)},
        {u"deliverer"_s, message.leaseOwner},
        {u"deliverers lost"_s, countText(message.deliverersLost)},
        {u"settled"_s, timeText(message.settled)}, {u"moved to"_s, message.movedTo},
        {u"url"_s, message.url}};
}

QString linesText(const QList<Line> &lines)
{
    QString text;
    for (const auto &[name, value] : lines)
        if (!value.isEmpty())
            text += plaintext::line(name + u": "_s + value) + u'\n';
    return text;
}

QList<Line> headersOf(const QueueMessage &message)
{
    QStringList names = message.headers.keys();
    names.sort();
    QList<Line> lines;
    for (const QString &name : names)
        lines.append({u"header "_s + name, message.headers[name]});
    return lines;
}

QString blockText(const QString &title, const QByteArray &contents)
{
    if (contents.isEmpty())
        return {};
    const QString text = QString::fromUtf8(contents);
    return u'\n' + title + u":\n"_s + text + (text.endsWith(u'\n') ? u""_s : u"\n"_s);
}

} // namespace

QString messageText(const QueueMessage &message)
{
    return plaintext::block(linesText(linesOf(message) + headersOf(message))
        + blockText(u"body"_s, message.body) + blockText(u"answer"_s, message.answer));
}

QString timeText(const QDateTime &time)
{
    return time.toLocalTime().toString(u"yyyy-MM-dd HH:mm:ss");
}

QString reasonText(const QueueMessage &message)
{
    return message.movedTo.isEmpty() ? message.lastError : u"moved to "_s + message.movedTo;
}

} // namespace till

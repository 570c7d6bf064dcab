#include "till/queue/messagetext.h"

#include "host/framework/tr.h"
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
    return {{tr::Tr(u"queueMessageId"_s, u"идентификатор"_s).ui(), message.id},
        {tr::Tr(u"queueMessageQueue"_s, u"очередь"_s).ui(), message.queue},
        {tr::Tr(u"queueMessageState"_s, u"состояние"_s).ui(), stateName(message.state)},
        {tr::Tr(u"queueMessageRemark"_s, u"пометка"_s).ui(), message.remark},
        {tr::Tr(u"queueMessageTill"_s, u"касса"_s).ui(), message.lane},
        {tr::Tr(u"queueMessageDocument"_s, u"документ"_s).ui(), message.correlationId},
        {tr::Tr(u"queueMessageEnqueued"_s, u"поставлено в очередь"_s).ui(),
            timeText(message.enqueued)},
        {tr::Tr(u"queueMessageAttempts"_s, u"попыток"_s).ui(), QString::number(message.attempts)},
        {tr::Tr(u"queueMessageLastAttempt"_s, u"последняя попытка"_s).ui(),
            timeText(message.lastAttempt)},
        {tr::Tr(u"queueMessageNextAttempt"_s, u"следующая попытка"_s).ui(),
            isPending ? timeText(message.nextAttempt) : QString()},
        {tr::Tr(u"queueMessageLastError"_s, u"последняя ошибка"_s).ui(), message.lastError},
        {tr::Tr(u"queueMessageCode"_s, u"код"_s).ui(), countText(message.lastCode)},
        {tr::Tr(u"queueMessageOtherAnswers"_s, u"другие ответы с"_s).ui(),
            timeText(message.answeredOtherwiseSince)},
        {tr::Tr(u"queueMessageDeliverer"_s, u"кто отправляет"_s).ui(), message.leaseOwner},
        {tr::Tr(u"queueMessageDeliverersLost"_s, u"отправка прерывалась, раз"_s).ui(),
            countText(message.deliverersLost)},
        {tr::Tr(u"queueMessageSettled"_s, u"завершено"_s).ui(), timeText(message.settled)},
        {tr::Tr(u"queueMessageMovedTo"_s, u"перенесено в"_s).ui(), message.movedTo},
        {tr::Tr(u"queueMessageUrl"_s, u"адрес"_s).ui(), message.url}};
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
        lines.append({tr::Tr(u"queueMessageHeader"_s, u"заголовок %1"_s).arg(name).ui(),
            message.headers[name]});
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
        + blockText(tr::Tr(u"queueMessageBody"_s, u"тело"_s).ui(), message.body)
        + blockText(tr::Tr(u"queueMessageAnswer"_s, u"ответ"_s).ui(), message.answer));
}

QString timeText(const QDateTime &time)
{
    return time.toLocalTime().toString(u"yyyy-MM-dd HH:mm:ss");
}

QString reasonText(const QueueMessage &message)
{
    return message.movedTo.isEmpty()
        ? message.lastError
        : tr::Tr(u"queueReasonMoved"_s, u"перенесено в %1"_s).arg(message.movedTo).ui();
}

} // namespace till

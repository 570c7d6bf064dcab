#include "till/explain/messagesteps.h"

#include "till/explain/amounts.h"
#include "till/explain/facts.h"
#include "till/queue/messagetext.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace till::explain {

namespace {

tr::Tr attemptText(int attempt, const QString &error)
{
    return tr::Tr(u"explainAttempt"_s, u"Попытка %1 отправить сообщение не удалась: %2"_s)
        .arg(QString::number(attempt))
        .arg(error);
}

QList<Step> attemptSteps(const QueueMessage &message, const QList<LogLine> &log)
{
    static const QRegularExpression pattern(
        u"\\Amessage (\\S+) of queue \\S+, attempt (\\d+): \\w+ ?(.*)\\z"_s);
    QList<Step> steps;
    for (const LogLine &line : log) {
        const auto match = pattern.match(line.text);
        const int attempt = match.captured(2).toInt();
        if (match.captured(1) != message.id || attempt >= message.attempts)
            continue;
        steps.append({line.time, Source::Log, u"attemptFailed"_s,
            attemptText(attempt, match.captured(3)), {}});
    }
    return steps;
}

Amounts bookedBy(const QueueMessage &message, bool isReturn)
{
    return amountsOf(isReturn ? ServiceOperation::Return : ServiceOperation::Register,
        answerFacts(message.answer));
}

Step outcomeStep(const QueueMessage &message, bool isReturn)
{
    const QDateTime settled = message.settled.isValid() ? message.settled : message.lastAttempt;
    switch (message.state) {
    case MessageState::Delivered:
        return {settled, Source::Queue, u"delivered"_s,
            {u"explainDelivered"_s, u"Сообщение доставлено: система лояльности провела документ"_s},
            bookedBy(message, isReturn)};
    case MessageState::Refused:
        return {settled, Source::Queue, u"refused"_s,
            tr::Tr(u"explainMessageRefused"_s,
                u"Система лояльности отказалась принять сообщение: %1"_s)
                .arg(message.lastError),
            {}};
    case MessageState::Parked:
        return {message.lastAttempt.isValid() ? message.lastAttempt : message.enqueued,
            Source::Queue, u"parked"_s,
            {u"explainParked"_s, u"Сообщение отложено до решения человека"_s}, {}};
    case MessageState::Sending:
        return {message.lastAttempt, Source::Queue, u"sending"_s,
            {u"explainSending"_s, u"Сообщение как раз отправляется"_s}, {}};
    case MessageState::Pending:
        break;
    }
    return {message.lastAttempt, Source::Queue, u"attemptFailed"_s,
        attemptText(message.attempts, message.lastError), {}};
}

Step movedStep(const QueueMessage &message)
{
    return {message.lastAttempt.isValid() ? message.lastAttempt : message.enqueued, Source::Queue,
        u"moved"_s,
        tr::Tr(u"explainMoved"_s, u"Сообщение перенесено в файл %1 для другой машины"_s)
            .arg(message.movedTo),
        {}};
}

bool isUntried(const QueueMessage &message)
{
    return message.state == MessageState::Pending && !message.lastAttempt.isValid();
}

} // namespace

QList<Step> messageSteps(const Evidence &evidence)
{
    QList<Step> steps;
    for (const QueueMessage &message : evidence.messages) {
        steps.append({message.enqueued, Source::Queue, u"enqueued"_s,
            tr::Tr(u"explainEnqueued"_s, u"Документ записан в очередь отправки, сообщение %1"_s)
                .arg(message.id),
            {}});
        steps += attemptSteps(message, evidence.log);
        if (!message.movedTo.isEmpty())
            steps.append(movedStep(message));
        else if (!isUntried(message))
            steps.append(outcomeStep(message, facts::isReturn(evidence)));
    }
    return steps;
}

bool isOfMessage(const LogLine &line)
{
    return line.logger == u"poshost.queue" && line.text.startsWith(u"message ");
}

} // namespace till::explain

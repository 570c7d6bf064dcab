#include "till/explain/storytext.h"

#include "host/text/plaintext.h"
#include "till/language/localetext.h"
#include "till/queue/messagetext.h"

using namespace Qt::StringLiterals;

namespace till::explain {

namespace {

tr::Tr sourceText(Source source)
{
    switch (source) {
    case Source::Journal:
        return {u"explainFromJournal"_s, u"журнал"_s};
    case Source::Document:
        return {u"explainFromDocument"_s, u"документ"_s};
    case Source::Queue:
        return {u"explainFromQueue"_s, u"очередь"_s};
    case Source::Log:
        return {u"explainFromLog"_s, u"лог"_s};
    case Source::Service:
        break;
    }
    return {u"explainFromService"_s, u"система"_s};
}

tr::Tr whereText(Whereabouts where)
{
    switch (where) {
    case Whereabouts::Booked:
        return {u"explainBooked"_s, u"проведены в системе лояльности"_s};
    case Whereabouts::Waiting:
        return {u"explainWaiting"_s, u"ждут в очереди отправки"_s};
    case Whereabouts::Parked:
        return {u"explainIsParked"_s, u"отложены в очереди до решения человека"_s};
    case Whereabouts::Refused:
        return {u"explainRefused"_s, u"не приняты системой лояльности"_s};
    case Whereabouts::Withdrawn:
        return {u"explainWithdrawn"_s, u"отменены вместе с документом"_s};
    case Whereabouts::NeverEarned:
        return {u"explainNeverEarned"_s, u"их не было: некому начислять"_s};
    case Whereabouts::Open:
        return {u"explainOpen"_s, u"ещё не проведены: документ открыт"_s};
    case Whereabouts::Unknown:
        break;
    }
    return {u"explainUnknown"_s, u"неизвестно"_s};
}

void add(QStringList &parts, const tr::Tr &text, const std::optional<double> &amount)
{
    if (amount)
        parts.append(text.arg(amountForEyes(*amount)).ui());
}

QString amountsText(const Amounts &amounts)
{
    QStringList parts;
    add(parts, {u"explainSum"_s, u"сумма %1"_s}, amounts.sum);
    add(parts, {u"explainAvailable"_s, u"можно списать %1"_s}, amounts.available);
    add(parts, {u"explainToSpend"_s, u"будет списано %1"_s}, amounts.toSpend);
    add(parts, {u"explainSpent"_s, u"списано %1"_s}, amounts.spent);
    add(parts, {u"explainEarned"_s, u"начислено %1"_s}, amounts.earned);
    add(parts, {u"explainTakenBack"_s, u"снято начисленных %1"_s}, amounts.takenBack);
    add(parts, {u"explainGivenBack"_s, u"возвращено списанных %1"_s}, amounts.givenBack);
    add(parts, {u"explainBalance"_s, u"на карте %1"_s}, amounts.balance);
    return parts.join(u", "_s);
}

QString behind(const QString &text, const Amounts &amounts)
{
    const QString told = amountsText(amounts);
    return told.isEmpty() ? text : text + u": "_s + told;
}

QString stepLine(const Step &step, qsizetype sourceWidth)
{
    return plaintext::line(u"  %1  %2  %3"_s.arg(timeText(step.time),
               sourceText(step.source).ui().leftJustified(sourceWidth),
               behind(step.text.ui(), step.amounts)))
        + u'\n';
}

QString heading(const Story &story)
{
    const tr::Tr what = story.isReturn
        ? (story.refersTo.isEmpty()
                ? tr::Tr(u"explainHeadingReturn"_s, u"Возврат %1"_s).arg(story.number)
                : tr::Tr(u"explainHeadingReturnOf"_s, u"Возврат %1 по чеку %2"_s)
                      .arg(story.number)
                      .arg(story.refersTo))
        : tr::Tr(u"explainHeadingSale"_s, u"Чек %1"_s).arg(story.number);
    const tr::Tr card = story.card.isEmpty()
        ? tr::Tr(u"explainHeadingNoCard"_s, u"без карты"_s)
        : tr::Tr(u"explainHeadingCard"_s, u"карта %1"_s).arg(story.card);
    return plaintext::line(tr::Tr(u"explainHeading"_s, u"%1, %2 (метка %3)"_s)
                               .arg(what)
                               .arg(card)
                               .arg(story.correlationId)
                               .ui())
        + u'\n';
}

QString conclusionText(const Conclusion &conclusion)
{
    const QStringList lines{
        behind(tr::Tr(u"explainWhere"_s, u"Баллы: %1"_s).arg(whereText(conclusion.where)).ui(),
            conclusion.amounts),
        tr::Tr(u"explainWhy"_s, u"Почему: %1"_s).arg(conclusion.why).ui(),
        tr::Tr(u"explainNext"_s, u"Что делать: %1"_s).arg(conclusion.next).ui()};
    QString text;
    for (const QString &line : lines)
        text += plaintext::line(line) + u'\n';
    return text;
}

} // namespace

QString storyText(const Story &story)
{
    qsizetype width = 0;
    for (const Step &step : story.steps)
        width = qMax(width, sourceText(step.source).ui().size());
    QString text = heading(story);
    for (const Step &step : story.steps)
        text += stepLine(step, width);
    return text + conclusionText(story.conclusion);
}

} // namespace till::explain

#include "till/accept/reporttext.h"

#include "host/framework/tr.h"
#include "host/text/plaintext.h"
#include "till/accept/request.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace till::accept {

namespace {

constexpr qsizetype idWidth = 20;
constexpr qsizetype mostExchangeCharacters = 8000;

QString wordOf(Verdict verdict)
{
    switch (verdict) {
    case Verdict::Passed:
        return tr::Tr(u"acceptPassed"_s, u"выполнено"_s).ui();
    case Verdict::Failed:
        return tr::Tr(u"acceptFailed"_s, u"НАРУШЕНО"_s).ui();
    case Verdict::NotOffered:
        return tr::Tr(u"acceptNotOffered"_s, u"не предлагается"_s).ui();
    case Verdict::NotReached:
        return tr::Tr(u"acceptNotReached"_s, u"не дошло"_s).ui();
    }
    return {};
}

QString textOf(const Acceptance &acceptance, const QString &rule)
{
    const Rule *found = acceptance.rule(rule);
    return found ? found->text.ui() : QString();
}

qsizetype wordWidth()
{
    qsizetype width = 0;
    for (const Verdict verdict :
        {Verdict::Passed, Verdict::Failed, Verdict::NotOffered, Verdict::NotReached})
        width = std::max(width, wordOf(verdict).size());
    return width;
}

QString indentedBy(const QString &text, qsizetype blanks)
{
    QString indented;
    for (const QString &line : text.split(u'\n'))
        indented += QString(blanks, u' ') + line + u'\n';
    return indented;
}

/// A message of the exchange, for a terminal.
QString messageText(const QByteArray &message)
{
    constexpr qsizetype blanks = 8;
    QString text = plaintext::block(indented(message));
    if (text.isEmpty())
        text = u"–"_s;
    if (text.size() > mostExchangeCharacters)
        text = text.left(mostExchangeCharacters) + u"…"_s;
    return indentedBy(text, blanks);
}

QString failureText(const Failure &failure)
{
    const auto line = [](const tr::Tr &label, const QString &value) {
        return u"      %1: %2\n"_s.arg(label.ui(), plaintext::line(value));
    };
    QString text = line({u"acceptExpected"_s, u"ожидалось"_s}, failure.shortfall.expected);
    text += line({u"acceptGot"_s, u"получено"_s}, failure.shortfall.got);
    text += line({u"acceptRequest"_s, u"запрос"_s}, failure.step) + messageText(failure.request);
    text += u"      %1:\n"_s.arg(tr::Tr(u"acceptAnswer"_s, u"ответ"_s).ui())
        + messageText(failure.answer);
    return text;
}

QString ruleText(const RuleResult &result, const Acceptance &acceptance, qsizetype width)
{
    const QString reason = result.reason.isEmpty() ? QString() : u" ("_s + result.reason + u')';
    QString text = u"  %1  %2  %3%4\n"_s.arg(wordOf(result.verdict).leftJustified(width),
        result.rule.leftJustified(idWidth), textOf(acceptance, result.rule), reason);
    for (const Failure &failure : result.failures)
        text += failureText(failure);
    return text;
}

/// Why a flow was left out as a whole; empty where it was not.
QString reasonToLeaveOut(const FlowResult &flow)
{
    const bool isLeftOut = std::all_of(flow.rules.begin(), flow.rules.end(),
        [](const RuleResult &rule) { return rule.verdict == Verdict::NotOffered; });
    return isLeftOut ? flow.rules.first().reason : QString();
}

QString flowText(const FlowResult &flow, const Acceptance &acceptance)
{
    QString text = u"%1: %2\n"_s.arg(flow.id, flow.title);
    const QString reason = reasonToLeaveOut(flow);
    if (!reason.isEmpty())
        return text + u"  %1 (%2)\n\n"_s.arg(wordOf(Verdict::NotOffered), reason);
    const qsizetype width = wordWidth();
    for (const RuleResult &rule : flow.rules)
        text += ruleText(rule, acceptance, width);
    return text + u'\n';
}

QString bookingsText(const Report &report)
{
    if (report.booked == 0)
        return tr::Tr(u"acceptNothingBooked"_s, u"ничего не проведено"_s).ui() + u'\n';
    return tr::Tr(u"acceptBooked"_s,
               u"проведено: %1, возвращено назад: %2; баланс карты до: %3, после: %4"_s)
               .arg(QString::number(report.booked))
               .arg(QString::number(report.takenBack))
               .arg(report.balanceBefore)
               .arg(report.balanceAfter)
               .ui()
        + u'\n';
}

} // namespace

QString reportText(const Report &report, const Acceptance &acceptance)
{
    QString text = tr::Tr(u"acceptHeading"_s, u"приёмка %1, карта %2"_s)
                       .arg(report.url)
                       .arg(report.card)
                       .ui()
        + u"\n\n"_s;
    for (const FlowResult &flow : report.flows)
        text += flowText(flow, acceptance);
    for (const FlowResult &flow : report.flows)
        for (const FindingResult &finding : flow.findings)
            text += u"%1: %2\n"_s.arg(finding.about, finding.text);
    text += bookingsText(report);
    return text
        + tr::Tr(
            u"acceptSummary"_s, u"выполнено: %1, нарушено: %2, не предлагается: %3, не дошло: %4"_s)
              .arg(QString::number(report.count(Verdict::Passed)))
              .arg(QString::number(report.count(Verdict::Failed)))
              .arg(QString::number(report.count(Verdict::NotOffered)))
              .arg(QString::number(report.count(Verdict::NotReached)))
              .ui()
        + u'\n';
}

QStringList leftOverText(const Report &report)
{
    QStringList lines;
    for (const LeftOver &left : report.leftOver)
        lines.append(tr::Tr(
            u"acceptLeftOver"_s, u"НЕ ВОЗВРАЩЕНО НАЗАД: %1, чек %2, карта %3, операция %4: %5"_s)
                         .arg(left.operation)
                         .arg(left.number)
                         .arg(left.card)
                         .arg(left.transaction.isEmpty() ? u"–"_s : left.transaction)
                         .arg(left.reason)
                         .ui());
    if (report.balanceBefore != report.balanceAfter)
        lines.append(
            tr::Tr(u"acceptBalanceChanged"_s, u"БАЛАНС ИЗМЕНИЛСЯ: на карте %1 было %2, стало %3"_s)
                .arg(report.card)
                .arg(report.balanceBefore.isEmpty() ? u"–"_s : report.balanceBefore)
                .arg(report.balanceAfter.isEmpty() ? u"–"_s : report.balanceAfter)
                .ui());
    return lines;
}

QString listText(const Acceptance &acceptance)
{
    QString text;
    for (const Flow &flow : acceptance.flows) {
        text += u"%1: %2%3\n"_s.arg(
            flow.id, flow.title.ui(), flow.writes ? u" (--write)"_s : QString());
        for (const QString &rule : rulesOf(flow))
            text += u"  %1  %2\n"_s.arg(rule.leftJustified(idWidth), textOf(acceptance, rule));
    }
    return text;
}

} // namespace till::accept

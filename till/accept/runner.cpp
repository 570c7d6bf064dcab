#include "till/accept/runner.h"

#include "till/accept/answerrules.h"
#include "till/core/cannotdo.h"
#include "till/queue/output.h"

#include <QProcess>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace till::accept {

namespace {

constexpr int mostCodeMilliseconds = 120'000; // a person may have to read it from a telephone

[[noreturn]] void failOn(const Flow &flow, const QString &what)
{
    throw CannotDo(tr::Tr(u"acceptFlowFails"_s, u"сценарий %1: %2"_s).arg(flow.id).arg(what),
        {u"acceptStepRemedy"_s, u"исправьте сценарий"_s});
}

QString balanceIn(const Answer &answer)
{
    const QList<QDomElement> found = elementsAt(answer.payload, {u"CardNormalActiveBalance"_s});
    return found.isEmpty() ? QString() : found.first().text();
}

Failure failureOf(const Exchange &exchange, const Shortfall &shortfall)
{
    return {exchange.step, shortfall, exchange.request, exchange.answer.body};
}

FindingCase caseOf(const Finding &finding, Dialogue &dialogue)
{
    for (const FindingCase &one : finding.cases) {
        const bool isSo = std::all_of(one.when.begin(), one.when.end(),
            [&](const Comparison &comparison) { return !shortfallOf(comparison, dialogue); });
        if (isSo)
            return one;
    }
    return finding.otherwise;
}

QString outputOf(const QString &command, const QString &card, const QString &number)
{
    QProcess process;
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"KORVEL_CARD"_s, card);
    environment.insert(u"KORVEL_CHEQUE"_s, number);
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(u"/bin/sh"_s, {u"-c"_s, command});
    const bool isDone = process.waitForFinished(mostCodeMilliseconds)
        && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
    if (!isDone)
        complain(tr::Tr(u"acceptCodeCommand"_s, u"команда --code-command не выполнена: %1"_s)
                     .arg(command)
                     .ui());
    return isDone ? QString::fromUtf8(process.readAllStandardOutput()).trimmed() : QString();
}

/// Whether a shortfall in this rule means that the answer wanted is not there.
bool isAboutPayload(const QString &rule)
{
    return rule == everyanswer::status || rule == everyanswer::kind;
}

FlowResult leftOut(const Flow &flow)
{
    FlowResultBuilder result(flow);
    result.restNotOffered(tr::Tr(u"acceptNeedsWrite"_s, u"нужен --write"_s).ui());
    return result.result;
}

} // namespace

Runner::Runner(const RunSettings &settings)
    : m_settings(settings)
    , m_schema(settings.protocolFolder)
    , m_service(settings.access)
    , m_composer(settings.protocolFolder, settings.card, settings.sender, settings.articles)
    , m_bookings(m_service, m_composer, [this] { return newNumber(); })
    , m_numberBeginning(QString::number(QDateTime::currentMSecsSinceEpoch()))
{ }

QString Runner::newNumber()
{
    constexpr int digits = 3;
    return m_numberBeginning + QString::number(++m_lastNumber).rightJustified(digits, u'0');
}

Dialogue Runner::newDialogue()
{
    return {{{u"card"_s, m_settings.card}, {u"unknownCard"_s, m_settings.unknownCard},
                {u"coupon"_s, m_settings.coupon}, {u"user"_s, m_settings.access.user}},
        [this] { return newNumber(); }};
}

Report Runner::run(const QList<Flow> &flows)
{
    const Answer first = askBalance();
    if (!first.isThere())
        throw ServiceNotReachable(
            tr::Tr(u"acceptNotReachable"_s, u"%1; проверьте адрес и сеть"_s).arg(first.errorText));
    Report report;
    report.url = m_settings.access.url.toDisplayString();
    report.card = m_settings.card;
    for (const Flow &flow : flows)
        report.flows.append(flow.writes && !m_settings.writes ? leftOut(flow) : runFlow(flow));
    if (m_settings.writes) {
        report.balanceBefore = balanceIn(first);
        report.balanceAfter = balanceIn(askBalance());
    }
    report.booked = m_bookings.booked();
    report.takenBack = m_bookings.takenBack();
    report.leftOver = m_bookings.leftOver();
    report.wasStopped = m_wasStopped;
    return report;
}

FlowResult Runner::runFlow(const Flow &flow)
{
    FlowResultBuilder result(flow);
    try {
        follow(flow, result);
    } catch (const ExpressionError &error) {
        m_bookings.takeBack();
        failOn(flow, QString::fromUtf8(error.what()));
    } catch (const CannotDo &) {
        m_bookings.takeBack();
        throw;
    }
    m_bookings.takeBack();
    return result.result;
}

void Runner::follow(const Flow &flow, FlowResultBuilder &result)
{
    Dialogue dialogue = newDialogue();
    for (const Step &step : flow.steps)
        if (!runStep(flow, step, dialogue, result))
            break;
    for (const Finding &finding : flow.findings) {
        const FindingCase found = caseOf(finding, dialogue);
        result.result.findings.append({finding.id, finding.about.ui(), found.id, found.text.ui()});
    }
}

bool Runner::runStep(
    const Flow &flow, const Step &step, Dialogue &dialogue, FlowResultBuilder &result)
{
    m_wasStopped = m_wasStopped || m_settings.isStopWanted();
    if (m_wasStopped)
        return false;
    if (step.onlyIf && shortfallOf(step.onlyIf->comparison, dialogue)) {
        result.restNotOffered(step.onlyIf->otherwise.ui());
        return false;
    }
    const Request request = composed(flow, step, dialogue);
    Exchange exchange{step.name, request.text, request.payload, ask(request, step), {}};
    if (step.asksHolder)
        exchange.holderCode = holderCode(request);
    dialogue.add(exchange);
    return look(step, exchange, request, dialogue, result);
}

Request Runner::composed(const Flow &flow, const Step &step, Dialogue &dialogue) const
{
    Request request = m_composer.compose(step, dialogue);
    if (request.books() && !flow.writes)
        failOn(flow,
            tr::Tr(u"acceptBooksUnannounced"_s, u"шаг %1 проводит чек, а \"writes\" не указано"_s)
                .arg(step.name)
                .ui());
    return request;
}

Answer Runner::ask(const Request &request, const Step &step)
{
    m_bookings.begin(request);
    Answer answer = m_service.ask(request.text,
        step.hasWrongCredentials ? Service::Credentials::Wrong : Service::Credentials::Right);
    m_bookings.end(answer);
    return answer;
}

QString Runner::holderCode(const Request &request) const
{
    return m_settings.codeCommand.isEmpty()
        ? m_settings.code
        : outputOf(m_settings.codeCommand, m_settings.card, request.textAt({u"Number"_s}));
}

bool Runner::look(const Step &step, const Exchange &exchange, const Request &request,
    Dialogue &dialogue, FlowResultBuilder &result) const
{
    bool isAnswered = exchange.answer.isThere();
    for (const AnswerVerdict &verdict : verdictsOn(exchange.answer, request, m_schema)) {
        if (step.expectsFault && verdict.rule != everyanswer::comes)
            continue;
        if (!verdict.shortfall)
            result.pass(verdict.rule);
        else
            result.fail(verdict.rule, failureOf(exchange, *verdict.shortfall));
        // Without the payload every check would say the same once more.
        isAnswered = isAnswered && !(verdict.shortfall && isAboutPayload(verdict.rule));
    }
    isAnswered = isAnswered && (step.expectsFault || !exchange.answer.payload.isNull());
    return isAnswered
        && std::all_of(step.checks.begin(), step.checks.end(),
            [&](const Check &check) { return lookAt(check, exchange, dialogue, result); });
}

bool Runner::lookAt(const Check &check, const Exchange &exchange, Dialogue &dialogue,
    FlowResultBuilder &result) const
{
    if (check.onlyIf && shortfallOf(check.onlyIf->comparison, dialogue)) {
        result.notOffered(check.rule, check.onlyIf->otherwise.ui());
        return true;
    }
    const auto shortfall = shortfallOf(check.comparison, dialogue);
    if (!shortfall) {
        result.pass(check.rule);
        return true;
    }
    result.fail(check.rule, failureOf(exchange, *shortfall));
    return !check.isNeeded;
}

Answer Runner::askBalance() const
{
    Dialogue dialogue({}, {});
    Step step;
    step.sample = u"balance-request"_s;
    return m_service.ask(m_composer.compose(step, dialogue).text);
}

} // namespace till::accept

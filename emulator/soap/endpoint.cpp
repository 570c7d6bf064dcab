#include "emulator/soap/endpoint.h"

#include "emulator/faults/faultreplies.h"
#include "emulator/faults/faultwords.h"
#include "emulator/http/status.h"
#include "emulator/soap/answerwriter.h"
#include "emulator/soap/requestreader.h"

#include <QElapsedTimer>

using namespace Qt::Literals::StringLiterals;

namespace emulator {

namespace {

HttpReply xmlReply(int status, const QByteArray &xml)
{
    HttpReply reply;
    reply.status = status;
    reply.contentType = "text/xml; charset=utf-8";
    reply.body = xml;
    return reply;
}

HttpReply faultReply(FaultOrigin origin, const char *what)
{
    return xmlReply(httpstatus::serverError, writeFault(origin, QString::fromUtf8(what)));
}

struct CodeVisitor
{
    int operator()(const RepeatedAnswer &answer) const { return answer.code; }
    int operator()(const BalanceAnswer &answer) const { return answer.outcome.code; }
    int operator()(const ChequeAnswer &answer) const { return answer.outcome.code; }
};

HttpReply answerReply(const Answer &answer, Exchange &exchange)
{
    exchange.code = std::visit(CodeVisitor(), answer);
    return xmlReply(httpstatus::ok, writeAnswer(answer));
}

QElapsedTimer startedTimer()
{
    QElapsedTimer timer;
    timer.start();
    return timer;
}

double millisecondsOf(const QElapsedTimer &time, const HttpReply &reply)
{
    constexpr double nanosecondsInOne = 1e6;
    return static_cast<double>(time.nsecsElapsed()) / nanosecondsInOne
        + static_cast<double>((reply.delay + reply.dripTime).count());
}

} // namespace

SoapEndpoint::SoapEndpoint(Desk &desk, FaultPlan &faults, ExchangeLog &log, Clock clock)
    : m_desk(desk)
    , m_faults(faults)
    , m_log(log)
    , m_clock(std::move(clock))
{ }

HttpReply SoapEndpoint::answer(const QByteArray &body)
{
    Exchange exchange;
    exchange.at = m_clock();
    exchange.request = body;
    const QElapsedTimer time = startedTimer();
    HttpReply reply;
    try {
        reply = answer(readRequest(body, m_schema), exchange);
    } catch (const RequestError &error) {
        reply = faultReply(FaultOrigin::Client, error.what());
    } catch (const std::exception &error) {
        reply = faultReply(FaultOrigin::Server, error.what());
    }
    exchange.milliseconds = millisecondsOf(time, reply);
    exchange.status = reply.status;
    exchange.answer = reply.body;
    m_log.add(std::move(exchange));
    return reply;
}

HttpReply SoapEndpoint::answer(const Request &request, Exchange &exchange)
{
    exchange.operation = operationName(operationOf(request));
    exchange.card = cardOf(request);
    exchange.pos = posOf(request);
    exchange.number = chequeNumberOf(request);
    const auto fault = m_faults.take(operationOf(request));
    if (!fault)
        return act(request, exchange);
    exchange.fault = faultWords(*fault);
    return strike(*fault, request, exchange);
}

HttpReply SoapEndpoint::act(const Request &request, Exchange &exchange)
{
    const BooksMark before(m_desk.books());
    HttpReply reply = answerReply(m_desk.answer(request), exchange);
    exchange.books = before.changesSince();
    return reply;
}

HttpReply SoapEndpoint::strike(const Fault &fault, const Request &request, Exchange &exchange)
{
    if (actsBeforeStriking(fault.kind)) {
        HttpReply reply = act(request, exchange);
        spoil(reply, fault);
        return reply;
    }
    if (fault.kind == FaultKind::Code)
        return answerCode(request, fault.argument, exchange);
    return replyInstead(fault);
}

HttpReply SoapEndpoint::answerCode(const Request &request, int code, Exchange &exchange) const
{
    const Outcome outcome{code, u"Ошибка по заказу: код %1"_s.arg(code)};
    return answerReply(m_desk.refuse(request, outcome), exchange);
}

} // namespace emulator

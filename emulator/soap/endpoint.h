#pragma once

#include "emulator/api/exchangelog.h"
#include "emulator/desk/desk.h"
#include "emulator/faults/faultplan.h"
#include "emulator/http/message.h"
#include "emulator/soap/schema.h"

namespace emulator {

/// The service's one address for tills: reads the request, lets the ordered faults strike, has
/// the desk answer and keeps the exchange. Never throws: a request that cannot be taken, and books
/// that cannot be written, give a SOAP fault. Its parts must outlive it.
class SoapEndpoint
{
public:
    SoapEndpoint(Desk &desk, FaultPlan &faults, ExchangeLog &log, Clock clock);

    HttpReply answer(const QByteArray &body);

private:
    HttpReply answer(const Request &request, Exchange &exchange);
    HttpReply act(const Request &request, Exchange &exchange);
    HttpReply strike(const Fault &fault, const Request &request, Exchange &exchange);
    HttpReply answerCode(const Request &request, int code, Exchange &exchange) const;

    Desk &m_desk;
    FaultPlan &m_faults;
    ExchangeLog &m_log;
    const Clock m_clock;
    const MessageSchema m_schema;
};

} // namespace emulator

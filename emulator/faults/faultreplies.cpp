#include "emulator/faults/faultreplies.h"

#include "emulator/http/guard.h"
#include "emulator/http/status.h"

using namespace Qt::Literals::StringLiterals;

namespace emulator {

namespace {

constexpr qsizetype hugeSize = qsizetype{8} * 1024 * 1024;

HttpReply xmlReply(const QByteArray &body)
{
    HttpReply reply;
    reply.contentType = "text/xml; charset=utf-8";
    reply.body = body;
    return reply;
}

HttpReply unsent(Delivery delivery)
{
    HttpReply reply;
    reply.delivery = delivery;
    return reply;
}

QByteArray wrongXml()
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<menu><dish price=\"4.20\">Soup of the day</dish></menu>\n";
}

// Well-formed and harmless but for its size.
QByteArray hugeXml()
{
    const QByteArray begin
        = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
          "<soap:Envelope xmlns:soap=\"http://schemas.xmlsoap.org/soap/envelope/\"><soap:Body>\n";
    const QByteArray end = "</soap:Body></soap:Envelope>\n";
    const QByteArray line = "<Filler>There is more of this than anybody asked for.</Filler>\n";
    const qsizetype lines = (hugeSize - begin.size() - end.size()) / line.size() + 1;
    return begin + line.repeated(lines) + end;
}

HttpReply redirection(int status)
{
    HttpReply reply = textReply(status, u"a fault was ordered"_s);
    reply.headers.emplace_back("Location", "/elsewhere");
    return reply;
}

} // namespace

void spoil(HttpReply &reply, const Fault &fault)
{
    switch (fault.kind) {
    case FaultKind::Delay:
        reply.delay = std::chrono::milliseconds(fault.argument);
        break;
    case FaultKind::Drip:
        reply.delivery = Delivery::Drip;
        reply.dripTime = std::chrono::milliseconds(fault.argument);
        break;
    case FaultKind::Half:
        reply.delivery = Delivery::Half;
        break;
    default:
        reply.delivery = Delivery::Nothing;
    }
}

HttpReply replyInstead(const Fault &fault)
{
    switch (fault.kind) {
    case FaultKind::Swallow:
        return unsent(Delivery::Nothing);
    case FaultKind::Empty:
        return xmlReply({});
    case FaultKind::NotXml:
        return xmlReply("This is not XML & was never meant to be <");
    case FaultKind::WrongXml:
        return xmlReply(wrongXml());
    case FaultKind::Huge:
        return xmlReply(hugeXml());
    case FaultKind::Status:
        return textReply(fault.argument, u"a fault was ordered"_s);
    case FaultKind::Redirect:
        return redirection(fault.argument);
    case FaultKind::Unauthorised:
        return unauthorisedReply();
    default:
        return unsent(Delivery::Reset);
    }
}

} // namespace emulator

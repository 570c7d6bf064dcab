#include "tests/faults/wire.h"

#include "tests/faults/content.h"
#include "tests/faults/httptext.h"

namespace faults {

namespace {

constexpr int forEver = -1;
// Slower than any limit lets an answer be, and often enough to look like progress.
constexpr int dripMilliseconds = 50;

const QByteArray soapFault
    = "<?xml version=\"1.0\" encoding=\"utf-8\"?>"
      "<soap:Envelope xmlns:soap=\"http://schemas.xmlsoap.org/soap/envelope/\"><soap:Body>"
      "<soap:Fault><faultcode>soap:Server</faultcode><faultstring>out of order</faultstring>"
      "</soap:Fault></soap:Body></soap:Envelope>";

// The answer with a status of its own; empty where a fault has none.
QByteArray statusAnswer(Kind kind)
{
    // Whoever follows it comes back here and is counted.
    const QByteArray elsewhere = "Location: /elsewhere\r\n";
    switch (kind) {
    case Kind::MovedForGood:
        return httpAnswer("301 Moved Permanently", {}, elsewhere);
    case Kind::Found:
        return httpAnswer("302 Found", {}, elsewhere);
    case Kind::MovedForNow:
        return httpAnswer("307 Temporary Redirect", {}, elsewhere);
    case Kind::Unauthorised:
        return httpAnswer("401 Unauthorized", {}, "WWW-Authenticate: Basic realm=\"loyalty\"\r\n");
    case Kind::Forbidden:
        return httpAnswer("403 Forbidden", {});
    case Kind::NotFound:
        return httpAnswer("404 Not Found", {});
    case Kind::ServerFault:
        return httpAnswer("500 Internal Server Error", soapFault);
    case Kind::Unavailable:
        return httpAnswer("503 Service Unavailable", {});
    default:
        return {};
    }
}

void drip(const Channel &till, const QByteArray &bytes)
{
    for (const char byte : bytes)
        if (till.awaitEnd(dripMilliseconds) || !till.send(QByteArray(1, byte)))
            return;
}

void sendHalf(const Channel &till, const QByteArray &whole, const QByteArray &part)
{
    till.send(whole.left(whole.size() - part.size()) + part.left(part.size() / 2));
}

// Such a till sees a connection that ends, or is reset, somewhere inside an answer.
bool cut(Kind kind, const Channel &till, const QByteArray &whole)
{
    switch (kind) {
    case Kind::AnswerLost:
        return true;
    case Kind::Reset:
        till.resetOnClose();
        return true;
    case Kind::CutHead:
        till.send(headOf(whole).left(headOf(whole).size() / 2));
        return true;
    case Kind::CutBody:
        sendHalf(till, whole, bodyOf(whole));
        return true;
    default:
        return false;
    }
}

} // namespace

bool answeredInstead(Kind kind, const Channel &till)
{
    switch (kind) {
    case Kind::ClosedAfterReading:
        return true;
    case Kind::Silent:
        (void)till.awaitEnd(forEver);
        return true;
    case Kind::Empty:
    case Kind::HtmlPage:
    case Kind::OtherXml:
        till.send(httpAnswer("200 OK", spoilt(kind, {})));
        return true;
    default:
        break;
    }
    const QByteArray status = statusAnswer(kind);
    return !status.isEmpty() && till.send(status);
}

void handOver(Kind kind, const Channel &till, const QByteArray &answer)
{
    if (cut(kind, till, answer))
        return;
    switch (kind) {
    case Kind::DripHead:
        return drip(till, answer);
    case Kind::DripBody:
        till.send(headOf(answer));
        return drip(till, bodyOf(answer));
    case Kind::TwiceAnnounced:
        till.send(answer + bodyOf(answer));
        return;
    default:
        break;
    }
    const QByteArray body = bodyOf(answer);
    const QByteArray changed = spoilt(kind, body);
    till.send(changed == body ? answer : httpAnswer("200 OK", changed));
}

} // namespace faults

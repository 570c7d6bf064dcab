#include "tests/till/accept/wrongservice.h"

#include "tests/faults/httptext.h"

#include <utility>

using restart::Socket;

namespace {

HttpMessage exchanged(quint16 port, const QByteArray &request)
{
    const Socket service = Socket::connectedTo(port);
    service.send("POST / HTTP/1.1\r\nHost: 127.0.0.1\r\nContent-Type: text/xml; charset=UTF-8\r\n"
                 "Connection: close\r\nContent-Length: "
        + QByteArray::number(request.size()) + "\r\n\r\n" + request);
    QByteArray answer;
    while (service.receive(answer) == Socket::Received::Bytes) { }
    return {faults::bodyOf(answer), answer.split(' ').value(1).toInt()};
}

} // namespace

WrongService::WrongService(const QUrl &realService, Change change)
    : m_servicePort(static_cast<quint16>(realService.port()))
    , m_change(std::move(change))
    , m_listener(Socket::onFreePort())
{
    m_listener.listen();
    m_thread = std::thread([this] { serve(); });
}

WrongService::~WrongService()
{
    m_listener.endListening();
    m_thread.join();
}

QUrl WrongService::url() const
{
    return QUrl(QStringLiteral("http://127.0.0.1:%1/").arg(m_listener.port()));
}

void WrongService::serve() const
{
    for (;;) {
        const Socket till = m_listener.accept();
        if (!till.isValid())
            return;
        serveConnection(till);
    }
}

void WrongService::serveConnection(const Socket &till) const
{
    QByteArray request;
    while (!faults::isWhole(request))
        if (till.receive(request) != Socket::Received::Bytes)
            return;
    const HttpMessage answer = m_change(faults::bodyOf(request),
        [this](const QByteArray &body) { return exchanged(m_servicePort, body); });
    if (answer.status != 0)
        till.send(faults::httpAnswer(QByteArray::number(answer.status) + " -", answer.body));
}

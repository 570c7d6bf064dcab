#include "tests/restart/relay.h"

#include <utility>

namespace restart {

namespace {

const QByteArray headEnd = "\r\n\r\n";
const QByteArray lengthName = "content-length:";

qsizetype bodyLength(const QByteArray &head)
{
    const QByteArray names = head.toLower();
    const qsizetype at = names.indexOf(lengthName);
    if (at < 0)
        return 0;
    const qsizetype value = at + lengthName.size();
    return names.mid(value, names.indexOf('\r', value) - value).trimmed().toLongLong();
}

bool isWhole(const QByteArray &request)
{
    const qsizetype end = request.indexOf(headEnd);
    return end >= 0
        && request.size() >= end + headEnd.size() + bodyLength(request.left(end + headEnd.size()));
}

// False when the till has gone before it had said everything.
bool readRequest(const Socket &till, QByteArray &request)
{
    while (!isWhole(request))
        if (till.receive(request) != Socket::Received::Bytes)
            return false;
    return true;
}

} // namespace

Relay::Relay(quint16 servicePort)
    : m_servicePort(servicePort)
    , m_listener(Socket::onFreePort())
{
    m_listener.listen();
    m_thread = std::thread([this] { serve(); });
}

Relay::~Relay()
{
    m_listener.endListening();
    m_thread.join();
}

void Relay::strikeAt(int exchange, Moment moment, std::function<void()> kill)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_strike = Strike{exchange, moment, std::move(kill)};
}

std::optional<Relay::Strike> Relay::takeStrike()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (!m_strike || --m_strike->exchange > 0)
        return std::nullopt;
    return std::exchange(m_strike, std::nullopt);
}

void Relay::serve()
{
    for (;;) {
        const Socket till = m_listener.accept();
        if (!till.isValid())
            return;
        serveConnection(till);
    }
}

void Relay::serveConnection(const Socket &till)
{
    QByteArray request;
    if (!readRequest(till, request))
        return;
    const auto ordered = takeStrike();
    if (ordered && ordered->moment == Moment::Asked)
        return ordered->kill();
    const Socket service = Socket::connectedTo(m_servicePort);
    if (ordered)
        strike(*ordered, request, till, service);
    else
        passOn(request, till, service);
}

void Relay::passOn(const QByteArray &request, const Socket &till, const Socket &service)
{
    service.send(request);
    for (;;) {
        QByteArray bytes;
        const auto received = service.receive(bytes);
        till.send(bytes);
        if (received == Socket::Received::Broken)
            till.resetOnClose();
        if (received != Socket::Received::Bytes)
            return;
    }
}

void Relay::strike(
    const Strike &strike, const QByteArray &request, const Socket &till, const Socket &service)
{
    service.send(request);
    QByteArray answer;
    while (service.receive(answer) == Socket::Received::Bytes) { }
    if (strike.moment == Moment::Answered)
        till.send(answer);
    strike.kill();
}

} // namespace restart

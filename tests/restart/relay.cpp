#include "tests/restart/relay.h"

#include <poll.h>

#include <array>
#include <cerrno>
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

// Waits until the service says something, or is seen not to be there; false when the till has gone
// before.
bool isAnswered(const Socket &till, const Socket &service)
{
    if (!service.isValid())
        return true;
    constexpr int forEver = -1;
    std::array<pollfd, 2> waited{
        {{service.descriptor(), POLLIN, 0}, {till.descriptor(), POLLIN, 0}}};
    while (::poll(waited.data(), waited.size(), forEver) < 0 && errno == EINTR) { }
    return waited[0].revents != 0;
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

void Relay::forgetStrike()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    m_strike.reset();
    m_struck.wait(lock, [this] { return !m_isStriking; });
}

void Relay::noteThatItStruck()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_isStriking = false;
    m_struck.notify_all();
}

void Relay::showRequestsTo(std::function<void(const QByteArray &)> witness)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_witness = std::move(witness);
}

void Relay::show(const QByteArray &request)
{
    const auto witness = [this] {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_witness;
    }();
    if (witness)
        witness(request);
}

std::optional<Relay::Strike> Relay::takeStrike()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (!m_strike || --m_strike->exchange > 0)
        return std::nullopt;
    m_isStriking = true;
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
    show(request);
    const auto ordered = takeStrike();
    if (ordered) {
        strike(*ordered, request, till);
        noteThatItStruck();
    } else {
        passOn(request, till, Socket::connectedTo(m_servicePort));
    }
}

// A till that gives up, or is killed, keeps nobody else waiting.
void Relay::passOn(const QByteArray &request, const Socket &till, const Socket &service)
{
    service.send(request);
    while (isAnswered(till, service)) {
        QByteArray bytes;
        const auto received = service.receive(bytes);
        till.send(bytes);
        if (received == Socket::Received::Broken)
            till.resetOnClose();
        if (received != Socket::Received::Bytes)
            return;
    }
}

void Relay::strike(const Strike &strike, const QByteArray &request, const Socket &till) const
{
    if (strike.moment == Moment::Asked)
        return strike.kill();
    const Socket service = Socket::connectedTo(m_servicePort);
    service.send(request);
    QByteArray answer;
    while (service.receive(answer) == Socket::Received::Bytes) { }
    if (strike.moment == Moment::Answered)
        till.send(answer);
    strike.kill();
}

} // namespace restart

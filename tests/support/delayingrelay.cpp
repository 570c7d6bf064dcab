#include "tests/support/delayingrelay.h"

#include <QByteArray>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <deque>
#include <optional>
#include <stdexcept>
#include <utility>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int backlog = 16;
constexpr qsizetype blockSize = 65536;
constexpr int forEver = -1;
// What is no longer asks nothing: the alert that ends TLS has 31 bytes at most, the handshake's
// last word 51. A server's farewell to it would else count as an answer, whenever it comes before
// the end of the connection does.
constexpr qsizetype longestFarewell = 31;

sockaddr_in loopback(quint16 port)
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(port);
    return address;
}

// What is said goes on its way at once, and is not kept until more has been said.
void sendAtOnce(int socket)
{
    constexpr int yes = 1;
    ::setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, &yes, sizeof yes);
}

int connectedTo(quint16 port)
{
    const int server = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address = loopback(port);
    if (::connect(server, reinterpret_cast<sockaddr *>(&address), sizeof address) != 0)
        ::shutdown(server, SHUT_RDWR);
    sendAtOnce(server);
    return server;
}

/// What one side says on its way to the other; the end of what it says travels too.
class Way
{
public:
    Way(int from, int to)
        : m_from(from)
        , m_to(to)
    { }

    [[nodiscard]] pollfd watched() const { return {m_ended ? -1 : m_from, POLLIN, 0}; }
    [[nodiscard]] bool hasEnded() const { return m_ended; }
    [[nodiscard]] bool isDone() const { return m_ended && m_travelling.empty(); }
    [[nodiscard]] std::optional<Clock::time_point> nextArrival() const
    {
        return m_travelling.empty() ? std::nullopt : std::optional(m_travelling.front().arrival);
    }

    /// Takes what is said now; how many bytes, 0 when that was the end.
    qsizetype take(Clock::duration delay)
    {
        QByteArray block(blockSize, Qt::Uninitialized);
        const auto count = ::recv(m_from, block.data(), static_cast<std::size_t>(block.size()), 0);
        m_ended = count <= 0;
        block.truncate(qMax(count, ssize_t{0}));
        m_travelling.push_back({Clock::now() + delay, block});
        return block.size();
    }

    /// Hands over what has arrived; whether anything has.
    bool deliver(Clock::time_point now)
    {
        bool any = false;
        for (; !m_travelling.empty() && m_travelling.front().arrival <= now; any = true) {
            const QByteArray bytes = m_travelling.front().bytes;
            m_travelling.pop_front();
            if (bytes.isEmpty())
                ::shutdown(m_to, SHUT_WR);
            else
                ::send(
                    m_to, bytes.constData(), static_cast<std::size_t>(bytes.size()), MSG_NOSIGNAL);
        }
        return any;
    }

private:
    struct Piece
    {
        Clock::time_point arrival;
        QByteArray bytes; ///< empty: the end
    };

    int m_from;
    int m_to;
    bool m_ended = false;
    std::deque<Piece> m_travelling;
};

using Arrival = std::optional<Clock::time_point>;

Arrival earlier(Arrival left, Arrival right)
{
    return left && right ? std::min(left, right) : left ? left : right;
}

int millisecondsUntil(Arrival arrival)
{
    if (!arrival)
        return forEver;
    const auto wait = std::chrono::ceil<std::chrono::milliseconds>(*arrival - Clock::now());
    return std::max(static_cast<int>(wait.count()), 0);
}

} // namespace

DelayingRelay::DelayingRelay(quint16 serverPort, std::chrono::milliseconds oneWay)
    : m_serverPort(serverPort)
    , m_oneWay(oneWay)
    , m_listener(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0))
    , m_stop(::eventfd(0, EFD_CLOEXEC))
{
    sockaddr_in address = loopback(0);
    auto *const generic = reinterpret_cast<sockaddr *>(&address);
    socklen_t length = sizeof address;
    if (::bind(m_listener, generic, length) != 0 || ::listen(m_listener, backlog) != 0
        || ::getsockname(m_listener, generic, &length) != 0)
        throw std::runtime_error("no free loopback port");
    m_port = ntohs(address.sin_port);
    m_thread = std::jthread([this] { serve(); });
}

DelayingRelay::~DelayingRelay()
{
    ::shutdown(m_listener, SHUT_RDWR);
    m_thread.join();
    ::eventfd_write(m_stop, 1);
    m_connections.clear();
    ::close(m_listener);
    ::close(m_stop);
}

QList<int> DelayingRelay::roundTrips() const
{
    const std::lock_guard lock(m_mutex);
    return m_roundTrips;
}

void DelayingRelay::noteRoundTrip(qsizetype number)
{
    const std::lock_guard lock(m_mutex);
    ++m_roundTrips[number];
}

void DelayingRelay::serve()
{
    for (;;) {
        const int client = ::accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC);
        if (client < 0)
            return;
        sendAtOnce(client);
        const std::lock_guard lock(m_mutex);
        m_roundTrips.append(1);
        m_connections.emplace_back(
            [this, client, number = m_roundTrips.size() - 1] { passOn(client, number); });
    }
}

void DelayingRelay::passOn(int client, qsizetype number)
{
    const int server = connectedTo(m_serverPort);
    Way asked(client, server);
    Way answered(server, client);
    // The round trip that the connection's set-up would have taken.
    const auto setUp = 2 * m_oneWay;
    bool isAsking = false;
    bool hasHeard = false;
    while (!asked.isDone() || !answered.isDone()) {
        std::array<pollfd, 3> watched{asked.watched(), answered.watched(), {m_stop, POLLIN, 0}};
        ::poll(watched.data(), watched.size(),
            millisecondsUntil(earlier(asked.nextArrival(), answered.nextArrival())));
        if (watched[2].revents != 0)
            break;
        if (watched[0].revents != 0)
            isAsking
                = asked.take(hasHeard ? m_oneWay : m_oneWay + setUp) > longestFarewell || isAsking;
        // Who has ended waits for nothing more; a server may still say farewell.
        const bool isAnswered = watched[1].revents != 0 && answered.take(m_oneWay) > 0;
        if (isAnswered && std::exchange(isAsking, false) && !asked.hasEnded())
            noteRoundTrip(number);
        asked.deliver(Clock::now());
        hasHeard = answered.deliver(Clock::now()) || hasHeard;
    }
    ::close(server);
    ::close(client);
}

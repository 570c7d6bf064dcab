#include "host/queue/server/connectionwatch.h"

#include <QDir>

#include <netdb.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <condition_variable>
#include <cstring>
#include <mutex>

using namespace Qt::Literals::StringLiterals;

namespace {

// The driver may try again over another connection, without TLS for instance.
constexpr std::chrono::milliseconds untilCutAgain{10};

/// A second descriptor of the same socket, which stays that socket whatever is done to the first.
class Descriptor
{
public:
    explicit Descriptor(int other)
        : m_number(::dup(other))
    { }
    ~Descriptor()
    {
        if (m_number >= 0)
            ::close(m_number);
    }
    Q_DISABLE_COPY_MOVE(Descriptor)

    [[nodiscard]] int number() const { return m_number; }

private:
    int m_number;
};

std::set<int> openDescriptors()
{
    std::set<int> numbers;
    const QStringList names = QDir(u"/proc/self/fd"_s).entryList(QDir::Files | QDir::System);
    for (const QString &name : names)
        numbers.insert(name.toInt());
    return numbers;
}

QByteArray nameOf(const ServerAddress &address, const QString &networkAddress)
{
    const QByteArray port = QByteArray::number(address.port);
    if (address.isSocket())
        return QFile::encodeName(address.host) + "/.s.PGSQL." + port;
    return networkAddress.toLatin1() + ' ' + port;
}

/// What the other end of a socket is called; empty for what is no socket, or has no other end.
QByteArray peerOf(int descriptor)
{
    sockaddr_storage peer{};
    socklen_t size = sizeof peer;
    auto *const address = reinterpret_cast<sockaddr *>(&peer);
    if (::getpeername(descriptor, address, &size) != 0)
        return {};
    if (peer.ss_family == AF_UNIX)
        return QByteArray(reinterpret_cast<const sockaddr_un *>(&peer)->sun_path);
    std::array<char, NI_MAXHOST> host{};
    std::array<char, NI_MAXSERV> port{};
    if (::getnameinfo(address, size, host.data(), host.size(), port.data(), port.size(),
            NI_NUMERICHOST | NI_NUMERICSERV)
        != 0)
        return {};
    return QByteArray(host.data()) + ' ' + port.data();
}

} // namespace

ConnectionWatch::ConnectionWatch(
    const ServerAddress &address, const QString &networkAddress, Clock::time_point deadline)
    : m_peer(nameOf(address, networkAddress))
    , m_before(openDescriptors())
    , m_watcher([this, deadline](const std::stop_token &stop) { watch(stop, deadline); })
{ }

ConnectionWatch::~ConnectionWatch() = default;

void ConnectionWatch::watch(const std::stop_token &stop, Clock::time_point deadline)
{
    std::mutex mutex;
    std::condition_variable_any nothing;
    std::unique_lock lock(mutex);
    while (!stop.stop_requested()) {
        nothing.wait_until(lock, stop, deadline, [] { return false; });
        if (stop.stop_requested())
            return;
        cut();
        deadline = Clock::now() + untilCutAgain;
    }
}

void ConnectionWatch::cut()
{
    for (const int number : openDescriptors()) {
        if (m_before.contains(number))
            continue;
        const Descriptor socket(number);
        if (peerOf(socket.number()) != m_peer)
            continue;
        // Before it is cut: whoever waits for it goes on at once, and asks.
        m_hasCut = true;
        ::shutdown(socket.number(), SHUT_RDWR);
    }
}

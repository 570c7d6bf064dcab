#include "tests/restart/socket.h"

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <stdexcept>
#include <string>

namespace restart {

namespace {

constexpr int backlog = 16;
constexpr qsizetype blockSize = 65536;

/// An address in the shape in which the system's calls take it.
class LoopbackAddress
{
public:
    explicit LoopbackAddress(quint16 port = 0)
    {
        m_address.sin_family = AF_INET;
        m_address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        m_address.sin_port = htons(port);
    }

    sockaddr *get() { return reinterpret_cast<sockaddr *>(&m_address); }
    socklen_t *length() { return &m_length; }
    [[nodiscard]] quint16 port() const { return ntohs(m_address.sin_port); }

private:
    sockaddr_in m_address{};
    socklen_t m_length = sizeof m_address;
};

Socket makeSocket()
{
    return Socket(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
}

[[noreturn]] void fail(const char *what)
{
    throw std::runtime_error(std::string(what) + ": " + std::strerror(errno));
}

} // namespace

Socket::~Socket()
{
    if (isValid())
        ::close(m_descriptor);
}

Socket Socket::onFreePort()
{
    Socket socket = makeSocket();
    constexpr int yes = 1;
    LoopbackAddress address;
    if (::setsockopt(socket.m_descriptor, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes) != 0
        || ::bind(socket.m_descriptor, address.get(), *address.length()) != 0)
        fail("no free loopback port");
    return socket;
}

Socket Socket::connectedTo(quint16 port)
{
    Socket socket = makeSocket();
    LoopbackAddress address(port);
    return ::connect(socket.m_descriptor, address.get(), *address.length()) == 0 ? std::move(socket)
                                                                                 : Socket();
}

void Socket::listen()
{
    if (::listen(m_descriptor, backlog) != 0)
        fail("cannot listen");
}

Socket Socket::accept() const
{
    return Socket(::accept4(m_descriptor, nullptr, nullptr, SOCK_CLOEXEC));
}

void Socket::endListening() const
{
    ::shutdown(m_descriptor, SHUT_RDWR);
}

quint16 Socket::port() const
{
    LoopbackAddress address;
    ::getsockname(m_descriptor, address.get(), address.length());
    return address.port();
}

Socket::Received Socket::receive(QByteArray &bytes) const
{
    QByteArray block(blockSize, Qt::Uninitialized);
    const auto count
        = ::recv(m_descriptor, block.data(), static_cast<std::size_t>(block.size()), 0);
    if (count < 0)
        return Received::Broken;
    bytes.append(block.constData(), count);
    return count == 0 ? Received::End : Received::Bytes;
}

void Socket::send(const QByteArray &bytes) const
{
    qsizetype sent = 0;
    while (sent < bytes.size()) {
        const auto count = ::send(m_descriptor, bytes.constData() + sent,
            static_cast<std::size_t>(bytes.size() - sent), MSG_NOSIGNAL);
        if (count <= 0)
            return;
        sent += count;
    }
}

void Socket::resetOnClose() const
{
    constexpr linger atOnce{1, 0};
    ::setsockopt(m_descriptor, SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
}

} // namespace restart

#include "tests/faults/channel.h"

#include <poll.h>
#include <sys/socket.h>

#include <array>

namespace faults {

namespace {

constexpr std::size_t blockSize = 65536;

} // namespace

Channel::Channel(restart::Socket socket, SSL_CTX *context)
    : m_socket(std::move(socket))
{
    if (!context)
        return;
    m_tls.reset(SSL_new(context));
    SSL_set_fd(m_tls.get(), m_socket.descriptor());
    m_isOpen = SSL_accept(m_tls.get()) == 1;
}

bool Channel::receive(QByteArray &bytes) const
{
    if (!m_tls)
        return m_socket.receive(bytes) == restart::Socket::Received::Bytes;
    std::array<char, blockSize> block{};
    const int count = SSL_read(m_tls.get(), block.data(), static_cast<int>(block.size()));
    if (count > 0)
        bytes.append(block.data(), count);
    return count > 0;
}

bool Channel::send(const QByteArray &bytes) const
{
    if (m_tls)
        return SSL_write(m_tls.get(), bytes.constData(), static_cast<int>(bytes.size())) > 0;
    qsizetype sent = 0;
    while (sent < bytes.size()) {
        const auto count = ::send(m_socket.descriptor(), bytes.constData() + sent,
            static_cast<std::size_t>(bytes.size() - sent), MSG_NOSIGNAL);
        if (count <= 0)
            return false;
        sent += count;
    }
    return true;
}

bool Channel::awaitEnd(int milliseconds) const
{
    pollfd watched{m_socket.descriptor(), POLLRDHUP, 0};
    return ::poll(&watched, 1, milliseconds) != 0;
}

} // namespace faults

#include "tests/host/net/refusedport.h"

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <stdexcept>

RefusedPort::RefusedPort()
    : m_socket(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0))
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    auto *const generic = reinterpret_cast<sockaddr *>(&address);
    socklen_t length = sizeof address;
    if (::bind(m_socket, generic, length) != 0 || ::getsockname(m_socket, generic, &length) != 0)
        throw std::runtime_error("no free loopback port");
    m_port = ntohs(address.sin_port);
}

RefusedPort::~RefusedPort()
{
    ::close(m_socket);
}

void RefusedPort::startAccepting()
{
    if (::listen(m_socket, SOMAXCONN) != 0)
        throw std::runtime_error("a loopback port accepts no connections");
}

QUrl RefusedPort::url() const
{
    return QUrl(QStringLiteral("http://127.0.0.1:%1/").arg(m_port));
}

#include "tests/till/queue/holdingserver.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

HoldingServer::HoldingServer()
    : m_listener(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0))
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    auto *generic = reinterpret_cast<sockaddr *>(&address);
    if (::bind(m_listener, generic, length) != 0 || ::listen(m_listener, 1) != 0
        || ::getsockname(m_listener, generic, &length) != 0)
        qFatal("no loopback port");
    m_port = ntohs(address.sin_port);
}

HoldingServer::~HoldingServer()
{
    ::close(m_connection);
    ::close(m_listener);
}

QString HoldingServer::url() const
{
    return u"http://127.0.0.1:%1/"_s.arg(m_port);
}

void HoldingServer::takeRequest()
{
    m_connection = ::accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC);
    QByteArray request(65536, '\0');
    if (::read(m_connection, request.data(), static_cast<size_t>(request.size())) <= 0)
        qFatal("no request");
}

void HoldingServer::answer(const QByteArray &body)
{
    const QByteArray whole = "HTTP/1.1 200 OK\r\nConnection: close\r\nContent-Length: "
        + QByteArray::number(body.size()) + "\r\n\r\n" + body;
    if (::write(m_connection, whole.constData(), static_cast<size_t>(whole.size())) != whole.size())
        qFatal("no answer");
    ::shutdown(m_connection, SHUT_WR);
}

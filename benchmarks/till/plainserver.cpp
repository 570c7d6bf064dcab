#include "benchmarks/till/plainserver.h"

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <charconv>
#include <stdexcept>
#include <string>

namespace {

constexpr int backlog = 16;
constexpr std::size_t blockSize = 65536;
constexpr std::string_view headEnd = "\r\n\r\n";
constexpr std::string_view lengthName = "Content-Length: ";

std::size_t wholeSize(std::string_view request)
{
    const auto head = request.find(headEnd);
    const auto name = request.find(lengthName);
    if (head == std::string_view::npos || name == std::string_view::npos)
        return std::string_view::npos;
    std::size_t length = 0;
    const std::string_view digits = request.substr(name + lengthName.size());
    std::from_chars(digits.data(), digits.data() + digits.size(), length);
    return head + headEnd.size() + length;
}

void readRequest(int connection)
{
    std::array<char, blockSize> block{};
    std::string request;
    while (request.size() < wholeSize(request)) {
        const auto count = ::recv(connection, block.data(), block.size(), 0);
        if (count <= 0)
            return;
        request.append(block.data(), static_cast<std::size_t>(count));
    }
}

} // namespace

PlainServer::PlainServer(const QByteArray &answer)
    : m_bytes("HTTP/1.1 200 OK\r\nContent-Type: text/xml; charset=utf-8\r\nConnection: close\r\n"
              "Content-Length: "
        + QByteArray::number(answer.size()) + headEnd.data() + answer)
    , m_listener(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0))
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    auto *const generic = reinterpret_cast<sockaddr *>(&address);
    socklen_t length = sizeof address;
    if (::bind(m_listener, generic, length) != 0 || ::listen(m_listener, backlog) != 0
        || ::getsockname(m_listener, generic, &length) != 0)
        throw std::runtime_error("no free loopback port");
    m_port = ntohs(address.sin_port);
    m_thread = std::thread([this] { serve(); });
}

PlainServer::~PlainServer()
{
    ::shutdown(m_listener, SHUT_RDWR);
    m_thread.join();
    ::close(m_listener);
}

QUrl PlainServer::url() const
{
    return QUrl(QStringLiteral("http://127.0.0.1:%1/").arg(m_port));
}

void PlainServer::serve() const
{
    for (;;) {
        const int connection = ::accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC);
        if (connection < 0)
            return;
        readRequest(connection);
        ::send(connection, m_bytes.constData(), static_cast<std::size_t>(m_bytes.size()),
            MSG_NOSIGNAL);
        ::close(connection);
    }
}

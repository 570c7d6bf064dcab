#include "tests/support/scriptedserver.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <stdexcept>

namespace {

constexpr int backlog = 16;
constexpr qsizetype blockSize = 65536;
constexpr int dripPauseMilliseconds = 20;
constexpr int forEver = -1;
const QByteArray headEnd = "\r\n\r\n";

ScriptedServer::Request parsedHead(const QByteArray &head)
{
    ScriptedServer::Request request;
    const auto lines = head.split('\n');
    request.requestLine = lines.first().trimmed();
    for (const QByteArray &line : lines.mid(1)) {
        const auto colon = line.indexOf(':');
        if (colon > 0)
            request.headers.insert(
                line.left(colon).trimmed().toLower(), line.mid(colon + 1).trimmed());
    }
    return request;
}

bool readMore(int connection, QByteArray &bytes)
{
    QByteArray block(blockSize, Qt::Uninitialized);
    const auto count = ::recv(connection, block.data(), static_cast<std::size_t>(block.size()), 0);
    if (count > 0)
        bytes.append(block.constData(), count);
    return count > 0;
}

void sendAll(int connection, const QByteArray &bytes)
{
    qsizetype sent = 0;
    while (sent < bytes.size()) {
        const auto count = ::send(connection, bytes.constData() + sent,
            static_cast<std::size_t>(bytes.size() - sent), MSG_NOSIGNAL);
        if (count <= 0)
            return;
        sent += count;
    }
}

// Waits that long for the client to close the connection; it sends nothing more before that.
bool hasGone(int connection, int milliseconds)
{
    pollfd watched{connection, POLLIN, 0};
    return ::poll(&watched, 1, milliseconds) != 0;
}

void resetOnClose(int connection)
{
    constexpr linger atOnce{1, 0};
    ::setsockopt(connection, SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
}

} // namespace

ScriptedServer::ScriptedServer()
{
    m_listener = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
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

ScriptedServer::~ScriptedServer()
{
    ::shutdown(m_listener, SHUT_RDWR);
    m_thread.join();
    ::close(m_listener);
}

QUrl ScriptedServer::url() const
{
    return QUrl(QStringLiteral("http://127.0.0.1:%1/").arg(m_port));
}

void ScriptedServer::answer(const QByteArray &body, int status)
{
    answerRaw("HTTP/1.1 " + QByteArray::number(status)
        + " Scripted\r\nContent-Type: text/xml; charset=utf-8\r\nConnection: close\r\n"
          "Content-Length: "
        + QByteArray::number(body.size()) + headEnd + body);
}

void ScriptedServer::answerRaw(const QByteArray &bytes)
{
    add({bytes, Ending::Close});
}

void ScriptedServer::answerReset(const QByteArray &bytes)
{
    add({bytes, Ending::Reset});
}

void ScriptedServer::resetAfterHeads()
{
    m_resets = true;
}

void ScriptedServer::answerDripping(const QByteArray &bytes)
{
    add({bytes, Ending::Drip});
}

void ScriptedServer::answerNever()
{
    add({{}, Ending::Hold});
}

void ScriptedServer::add(const Answer &answer)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_answers.append(answer);
}

QList<ScriptedServer::Request> ScriptedServer::requests() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_requests;
}

void ScriptedServer::serve()
{
    for (;;) {
        const int connection = ::accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC);
        if (connection < 0)
            return;
        serveConnection(connection);
        ::close(connection);
    }
}

void ScriptedServer::serveConnection(int connection)
{
    QByteArray bytes;
    while (!bytes.contains(headEnd))
        if (!readMore(connection, bytes))
            return;
    if (m_resets)
        return resetOnClose(connection);
    const auto bodyStart = bytes.indexOf(headEnd) + headEnd.size();
    Request request = parsedHead(bytes.left(bodyStart));
    const auto length = request.headers.value("content-length").toLongLong();
    while (bytes.size() < bodyStart + length)
        if (!readMore(connection, bytes))
            return;
    request.body = bytes.mid(bodyStart);

    const Answer answer = nextAnswer(request);
    sendAll(connection, answer.bytes);
    if (answer.ending == Ending::Reset)
        resetOnClose(connection);
    else if (answer.ending == Ending::Drip)
        while (!hasGone(connection, dripPauseMilliseconds))
            sendAll(connection, "x");
    else if (answer.ending == Ending::Hold)
        hasGone(connection, forEver);
}

ScriptedServer::Answer ScriptedServer::nextAnswer(const Request &request)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_requests.append(request);
    if (m_answers.isEmpty())
        return {};
    return m_answers.size() > 1 ? m_answers.takeFirst() : m_answers.first();
}

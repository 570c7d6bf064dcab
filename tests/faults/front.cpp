#include "tests/faults/front.h"

#include "tests/faults/httptext.h"
#include "tests/faults/wire.h"

#include <pthread.h>

#include <csignal>
#include <stdexcept>
#include <utility>

namespace faults {

namespace {

Identity identityFor(Kind kind)
{
    switch (kind) {
    case Kind::TlsWrongName:
        return Identity::WrongName;
    case Kind::TlsExpired:
        return Identity::Expired;
    case Kind::TlsUnknownAuthority:
        return Identity::UnknownAuthority;
    default:
        return Identity::Right;
    }
}

} // namespace

Front::Front(quint16 servicePort, const Certificates *certificates)
    : m_servicePort(servicePort)
    , m_certificates(certificates)
    , m_listener(restart::Socket::onFreePort())
{
    m_listener.listen();
    m_thread = std::thread([this] { serve(); });
}

Front::~Front()
{
    m_listener.endListening();
    m_thread.join();
}

SSL_CTX *Front::contextFor(Kind kind) const
{
    return m_certificates ? &m_certificates->context(identityFor(kind)) : nullptr;
}

void Front::strike(Kind kind, int spared)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_kind = kind;
    m_spared = spared;
}

void Front::callInsteadOfAnswering(std::function<void()> call)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_call = std::move(call);
}

QString Front::failure() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_failure;
}

Kind Front::nextKind()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (m_kind == Kind::None || m_spared-- > 0)
        return Kind::None;
    ++m_struck;
    return m_kind;
}

bool Front::isCalledInstead()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    const auto call = std::exchange(m_call, {});
    lock.unlock();
    if (call)
        call();
    return static_cast<bool>(call);
}

void Front::serve()
{
    // OpenSSL writes to its socket so that a client that has gone would end the program.
    sigset_t brokenPipe;
    sigemptyset(&brokenPipe);
    sigaddset(&brokenPipe, SIGPIPE);
    pthread_sigmask(SIG_BLOCK, &brokenPipe, nullptr);
    for (;;) {
        restart::Socket till = m_listener.accept();
        if (!till.isValid())
            return;
        try {
            serveConnection(std::move(till), nextKind());
        } catch (const std::exception &error) {
            const std::lock_guard<std::mutex> lock(m_mutex);
            m_failure = QString::fromUtf8(error.what());
        }
    }
}

void Front::serveConnection(restart::Socket socket, Kind kind)
{
    if (kind == Kind::ClosedBeforeReading)
        return;
    const Channel till(std::move(socket), contextFor(kind));
    QByteArray request;
    while (till.isOpen() && !isWhole(request))
        if (!till.receive(request))
            return;
    if (!till.isOpen())
        return;
    ++m_requests;
    answer(kind, till, request);
}

QByteArray Front::asked(const QByteArray &request) const
{
    const restart::Socket service = restart::Socket::connectedTo(m_servicePort);
    service.send(request);
    QByteArray answer;
    while (service.receive(answer) == restart::Socket::Received::Bytes) { }
    return answer;
}

void Front::answer(Kind kind, const Channel &till, const QByteArray &request)
{
    if (answeredInstead(kind, till))
        return;
    const QByteArray whole = asked(request);
    if (!isCalledInstead())
        handOver(kind, till, whole);
}

} // namespace faults

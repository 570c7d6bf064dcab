#pragma once

#include "tests/faults/certificates.h"
#include "tests/faults/channel.h"
#include "tests/faults/fault.h"
#include "tests/restart/socket.h"

#include <QByteArray>
#include <QString>

#include <atomic>
#include <functional>
#include <mutex>
#include <thread>

namespace faults {

/// Stands in front of a service and passes on what a till and it say to each other, one connection
/// after the other, on a thread of its own. Told to, it does to each connection what a fault of the
/// network or of the answers does, and counts what it sees on the wire.
class Front
{
public:
    /// @param servicePort  of the loopback address.
    /// @param certificates null: it speaks plain HTTP; otherwise they must outlive it.
    Front(quint16 servicePort, const Certificates *certificates);
    ~Front();
    Q_DISABLE_COPY_MOVE(Front)

    /// Where the till finds it.
    [[nodiscard]] quint16 port() const { return m_listener.port(); }
    /// Every connection from now on meets this, save so many first ones; `None`: none does.
    void strike(Kind kind, int spared = 0);
    /// Calls this once, on its thread, when the service has acted upon the next request, which then
    /// gets no answer.
    void callInsteadOfAnswering(std::function<void()> call);
    /// Requests that were read whole.
    [[nodiscard]] int requests() const { return m_requests; }
    /// Connections that met a fault.
    [[nodiscard]] int struck() const { return m_struck; }
    /// What kept it from doing as it was told; empty when nothing did.
    [[nodiscard]] QString failure() const;

private:
    void serve();
    void serveConnection(restart::Socket socket, Kind kind);
    void answer(Kind kind, const Channel &till, const QByteArray &request);
    /// What the service answers, head and body.
    [[nodiscard]] QByteArray asked(const QByteArray &request) const;
    [[nodiscard]] SSL_CTX *contextFor(Kind kind) const;

    const quint16 m_servicePort;
    const Certificates *m_certificates;
    restart::Socket m_listener;
    Kind nextKind();
    bool isCalledInstead();

    mutable std::mutex m_mutex;
    Kind m_kind = Kind::None;
    int m_spared = 0;
    std::function<void()> m_call;
    QString m_failure;
    std::atomic<int> m_requests{0};
    std::atomic<int> m_struck{0};
    std::thread m_thread;
};

} // namespace faults

#pragma once

#include "host/queue/server/serveraddress.h"

#include <atomic>
#include <chrono>
#include <set>
#include <thread>

/// Sees to it that nobody waits long for a connection to a server that keeps silent: what this
/// process has connected to it since this object was made is cut when its time is over, so that
/// the driver, which tells of no socket before it is done, fails.
///
/// The driver's own limit counts in whole seconds and begins anew with every answer. Connections
/// that are to last must not be made on other threads meanwhile.
class ConnectionWatch
{
public:
    using Clock = std::chrono::steady_clock;

    /// @param networkAddress of the server; not looked at where the address is that of a socket.
    ConnectionWatch(
        const ServerAddress &address, const QString &networkAddress, Clock::time_point deadline);
    ~ConnectionWatch();
    ConnectionWatch(const ConnectionWatch &) = delete;
    ConnectionWatch &operator=(const ConnectionWatch &) = delete;

    /// Whether a connection was cut.
    [[nodiscard]] bool hasCut() const { return m_hasCut; }

private:
    void watch(const std::stop_token &stop, Clock::time_point deadline);
    void cut();

    const QByteArray m_peer; ///< as `peerOf` names it
    const std::set<int> m_before; ///< descriptors that were open already
    std::atomic<bool> m_hasCut = false;

    std::jthread m_watcher; ///< last, so that it ends before what it uses
};

#pragma once

#include "tests/restart/socket.h"

#include <vector>

namespace faults {

/// A loopback port to which no connection comes about: attempts are neither taken nor refused, as
/// with a machine that is switched off.
class BlackHole
{
public:
    /// @throws std::runtime_error when there is no such port.
    BlackHole();

    [[nodiscard]] quint16 port() const { return m_listener.port(); }

private:
    restart::Socket m_listener = restart::Socket::onFreePort();
    std::vector<restart::Socket> m_waiting; ///< fill the queue of those that wait to be accepted
};

} // namespace faults

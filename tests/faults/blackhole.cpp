#include "tests/faults/blackhole.h"

#include <netinet/in.h>
#include <sys/socket.h>

#include <stdexcept>

namespace faults {

namespace {

// More than a queue of the least length takes.
constexpr int connections = 4;
constexpr int leastBacklog = 0;

} // namespace

BlackHole::BlackHole()
{
    if (::listen(m_listener.descriptor(), leastBacklog) != 0)
        throw std::runtime_error("no port that keeps silent");
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(port());
    for (int count = 0; count < connections; ++count) {
        restart::Socket waiting(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
        ::connect(waiting.descriptor(), reinterpret_cast<sockaddr *>(&address), sizeof address);
        m_waiting.push_back(std::move(waiting));
    }
}

} // namespace faults

// The ways to the service: its name, and where connections to it go.

#include "tests/faults/machine/real.h"

#include <netdb.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <cstring>

namespace {

bool isService(const sockaddr_in &address)
{
    return ntohs(address.sin_port) == faults::control().servicePort
        && ntohl(address.sin_addr.s_addr) == INADDR_LOOPBACK;
}

} // namespace

extern "C" {

int getaddrinfo(const char *node, const char *service, const addrinfo *hints, addrinfo **result)
{
    static auto *const original
        = faults::real<int(const char *, const char *, const addrinfo *, addrinfo **)>(
            "getaddrinfo");
    if (node == nullptr || std::strcmp(node, faults::serviceName) != 0)
        return original(node, service, hints, result);
    if (faults::control().nameIsUnknown != 0) {
        ++faults::control().met;
        return EAI_NONAME;
    }
    return original("127.0.0.1", service, hints, result);
}

int connect(int socket, const sockaddr *address, socklen_t length)
{
    static auto *const original = faults::real<int(int, const sockaddr *, socklen_t)>("connect");
    const auto otherPort = faults::control().otherPort.load();
    sockaddr_in internet{};
    if (otherPort == 0 || address->sa_family != AF_INET || length < sizeof internet)
        return original(socket, address, length);
    std::memcpy(&internet, address, sizeof internet);
    if (!isService(internet))
        return original(socket, address, length);
    ++faults::control().met;
    internet.sin_port = htons(static_cast<std::uint16_t>(otherPort));
    return original(socket, reinterpret_cast<const sockaddr *>(&internet), sizeof internet);
}

} // extern "C"

#pragma once

#include "host/net/circuitbreaker.h"
#include "host/net/serverprobe.h"

#include <QString>

#include <map>
#include <memory>
#include <mutex>

/// The breakers of all servers that this process talks to, by address.
///
/// While one is open a probe connects to its server now and then, and lets exchanges through again
/// as soon as that succeeds. A server that accepts connections all the time, and does not answer,
/// is not tried before the rule's period has passed. May be used from any thread.
class Breakers
{
public:
    Breakers();

    /// The one of the process. Its probes end with it.
    static Breakers &instance();

    [[nodiscard]] bool admits(const QString &server);
    /// @param attempt how the probe connects, should this failure open the breaker.
    void noteFailure(
        const QString &server, const BreakerRule &rule, const ServerProbe::Attempt &attempt);
    void noteSuccess(const QString &server);

private:
    struct Entry
    {
        CircuitBreaker breaker;
        std::unique_ptr<ServerProbe> probe;
    };

    void noteBack(const QString &server);

    std::mutex m_mutex; ///< guards the entries; never held while a probe is released
    std::map<QString, Entry> m_entries;
};

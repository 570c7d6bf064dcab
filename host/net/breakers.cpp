#include "host/net/breakers.h"

#include "host/net/exchangememory.h"

namespace {

constexpr std::chrono::milliseconds probePause{1000};

CircuitBreaker::TimePoint now()
{
    return std::chrono::steady_clock::now();
}

} // namespace

Breakers &Breakers::instance()
{
    static Breakers breakers;
    return breakers;
}

Breakers::Breakers()
{
    // Set up before this object is, libcurl and what exchanges share outlive it and with it the
    // probes' threads.
    ExchangeMemory::instance();
}

bool Breakers::admits(const QString &server)
{
    const std::lock_guard lock(m_mutex);
    return m_entries[server].breaker.admits(now());
}

void Breakers::noteSuccess(const QString &server)
{
    // Released behind the lock, which the probe's thread may be waiting for.
    std::unique_ptr<ServerProbe> former;
    const std::lock_guard lock(m_mutex);
    Entry &entry = m_entries[server];
    entry.breaker.noteSuccess();
    former.swap(entry.probe);
}

void Breakers::noteFailure(
    const QString &server, const BreakerRule &rule, const ServerProbe::Attempt &attempt)
{
    std::unique_ptr<ServerProbe> former;
    const std::lock_guard lock(m_mutex);
    Entry &entry = m_entries[server];
    if (!entry.breaker.noteFailure(now(), rule))
        return;
    former.swap(entry.probe);
    entry.probe = std::make_unique<ServerProbe>(ProbeSchedule{probePause, now() + rule.period},
        attempt, [this, server] { noteBack(server); });
}

void Breakers::noteBack(const QString &server)
{
    const std::lock_guard lock(m_mutex);
    m_entries[server].breaker.noteBack();
}

#include "simulation/service.h"

#include <algorithm>
#include <cmath>

namespace simulation {

namespace {

using Seconds = std::chrono::duration<double>;

std::size_t workersFor(const ServiceSize &size)
{
    const double atOnce = std::round(size.capacity * Seconds(size.serviceTime).count());
    return static_cast<std::size_t>(std::max(atOnce, 1.0));
}

} // namespace

Service::Service(const ServiceSize &size)
    : m_free(workersFor(size))
    , m_duration(Seconds(workers() / size.capacity))
    , m_queueLimit(static_cast<std::size_t>(size.queueLimit))
{ }

std::optional<Moment> Service::accept(Moment now)
{
    while (!m_starts.empty() && m_starts.front() <= now)
        m_starts.pop();
    // Requests take equally long, so the worker that took one longest ago is the first to be free.
    Fine &free = m_free[m_turn];
    const Fine start = std::max<Fine>(free, now);
    if (start > now && m_starts.size() >= m_queueLimit)
        return {};
    if (start > now)
        m_starts.push(start);
    m_turn = (m_turn + 1) % m_free.size();
    free = start + m_duration;
    return std::chrono::ceil<Moment>(free);
}

} // namespace simulation

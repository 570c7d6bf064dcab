#include "simulation/deliverer.h"

#include <algorithm>
#include <utility>

namespace simulation {

Deliverer::Deliverer(Backlog &backlog, const Policy &policy)
    : m_backlog(&backlog)
    , m_policy(&policy)
{ }

bool Deliverer::take(Moment now)
{
    const auto position = m_backlog->take(now, m_position);
    m_position = position.value_or(m_position);
    return position.has_value();
}

void Deliverer::succeed()
{
    m_backlog->noteDelivered(m_position++);
    m_failuresInRow = 0;
    m_stops = m_policy->trustsSlowly ? std::max(m_stops - 1, 0) : 0;
}

void Deliverer::fail(Moment now, double messageChance, double tillChance)
{
    const int attempts = m_backlog->attempts(m_position) + 1;
    const Moment retry = now + m_policy->wait(attempts, messageChance);
    m_backlog->noteFailure(m_position++, retry);
    m_firstRetry = std::min(m_firstRetry.value_or(retry), retry);
    ++m_failuresInRow;
    if (m_policy->failuresToStop > 0 && m_failuresInRow >= m_policy->failuresToStop)
        stop(now, tillChance);
}

void Deliverer::stop(Moment now, double chance)
{
    ++m_stops;
    m_resumeAt = m_policy->tillWaits ? now + m_policy->wait(m_stops, chance) : *m_firstRetry;
}

std::optional<Moment> Deliverer::endPass()
{
    m_position = 0;
    m_firstRetry.reset();
    if (!m_policy->trustsSlowly)
        m_failuresInRow = 0;
    const auto resumeAt = std::exchange(m_resumeAt, std::nullopt);
    return resumeAt ? resumeAt : m_backlog->firstDue();
}

} // namespace simulation

#include "host/net/circuitbreaker.h"

bool CircuitBreaker::admits(TimePoint now) const
{
    return now >= m_openUntil;
}

void CircuitBreaker::noteSuccess()
{
    m_failures = 0;
    m_openUntil = TimePoint::min();
}

bool CircuitBreaker::noteFailure(TimePoint now, const BreakerRule &rule)
{
    // Not counted back when the breaker lets exchanges through again: the first of them decides.
    ++m_failures;
    if (!rule.isOn() || m_failures < rule.failures)
        return false;
    m_openUntil = now + rule.period;
    return true;
}

void CircuitBreaker::noteBack()
{
    m_openUntil = TimePoint::min();
}

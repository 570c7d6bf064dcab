#pragma once

#include "host/export.h"
#include "host/net/exchangesettings.h"

#include <chrono>

/// Stops exchanges with a server that keeps failing, so that a cashier does not wait out the limit
/// cheque after cheque.
///
/// Closed: everything is tried. Open, after as many failures in a row as the rule says: nothing is
/// tried until the rule's period has passed or `noteBack` was called. From then on exchanges
/// are tried again, but one more failure opens it at once; a success closes it for good.
/// Time is given, never asked for. Not synchronised.
class POSHOST_EXPORT CircuitBreaker
{
public:
    using TimePoint = std::chrono::steady_clock::time_point;

    /// Whether an exchange may be tried.
    [[nodiscard]] bool admits(TimePoint now) const;
    void noteSuccess();
    /// @returns whether this failure opened the breaker.
    bool noteFailure(TimePoint now, const BreakerRule &rule);
    /// The server was lost and accepts connections again, which does not say that it answers.
    void noteBack();

private:
    int m_failures = 0;
    TimePoint m_openUntil = TimePoint::min();
};

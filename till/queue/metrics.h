#pragma once

#include "till/queue/backlog.h"

namespace till {

/// The figures of the queue as OpenMetrics text, to its "# EOF"; before them the till's version and
/// whether it sells with loyalty.
[[nodiscard]] QString metricsText(
    const QueueOffice::Status &status, const QDateTime &now, BacklogLevel level, bool isLoyaltyOn);

} // namespace till

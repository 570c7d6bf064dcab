#pragma once

#include "till/queue/backlog.h"

namespace till {

/// The figures of the queue as OpenMetrics text, to its "# EOF".
[[nodiscard]] QString metricsText(
    const QueueOffice::Status &status, const QDateTime &now, BacklogLevel level);

} // namespace till

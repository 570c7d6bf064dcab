#pragma once

#include "till/queue/backlog.h"
#include "till/transcript/json.h"

namespace till {

/// The figures of the queue for people.
[[nodiscard]] QString statusText(
    const QueueOffice::Status &status, const QDateTime &now, const Backlog &backlog);

/// The same for programs: "counts" by state, "moved", "spilled", "waitingHere", "unreached",
/// "oldest" (UTC or null), "oldestSeconds", "lastError", "lastErrorTime", "lastSuccess", "level",
/// "reason".
[[nodiscard]] Json statusObject(
    const QueueOffice::Status &status, const QDateTime &now, const Backlog &backlog);

} // namespace till

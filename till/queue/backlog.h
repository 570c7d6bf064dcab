#pragma once

#include "host/framework/tr.h"
#include "host/queue/queueoffice.h"

#include <chrono>

namespace till {

/// From which age on what waits is worth a person's attention.
struct BacklogLimits
{
    std::chrono::minutes warning{60};
    std::chrono::minutes alarm{1440};

    /// "Queue:warnMinutes" and "Queue:alarmMinutes", in minutes; negative ones count as 0.
    [[nodiscard]] static BacklogLimits configured();
};

/// How the queue is; the numbers are exit statuses that a shop's monitoring knows.
enum class BacklogLevel : int
{
    Good = 0,
    Warning = 1,
    Alarm = 2,
};

/// What is to be told of the queue, and how urgently.
struct Backlog
{
    BacklogLevel level = BacklogLevel::Good;
    tr::Tr reason; ///< one line with what to do; empty when all is good
};

/// Messages that a person must look at: refused ones, and parked ones that were not moved away.
[[nodiscard]] qint64 waitingForAPerson(const QueueOffice::Status &status);

/// How long the oldest waiting message has waited, to the second; 0 when none waits, and when the
/// clock was set back behind it.
[[nodiscard]] std::chrono::seconds ageOfOldest(
    const QueueOffice::Status &status, const QDateTime &now);

/// Judges the queue. A message is older than a limit when it has waited longer than that.
[[nodiscard]] Backlog judgeBacklog(
    const QueueOffice::Status &status, const QDateTime &now, const BacklogLimits &limits);

/// "good", "warning" or "alarm".
[[nodiscard]] QString levelName(BacklogLevel level);
/// The same for people.
[[nodiscard]] tr::Tr levelText(BacklogLevel level);

} // namespace till

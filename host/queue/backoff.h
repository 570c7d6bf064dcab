#pragma once

#include "host/export.h"

#include <QDateTime>

#include <chrono>

/// When a message of the outgoing queue may be sent again: pure functions of their arguments, the
/// clock and the chance included. They never throw.
///
/// The longest wait doubles with every attempt that failed, up to a cap, so that a service that is
/// away is asked less and less often. The wait itself is spread evenly over everything between
/// nothing and that longest wait ("full jitter"), so that tills whose attempts failed at the same
/// moment do not come back at the same moment.
namespace backoff {

/// The longest wait after the first attempt.
inline constexpr std::chrono::milliseconds firstWait = std::chrono::seconds(5);
/// The longest wait after any number of attempts.
inline constexpr std::chrono::milliseconds longestWait = std::chrono::minutes(15);

/// The longest wait after so many attempts: none before the first one (0 or less), then
/// `firstWait`, doubled with each further attempt, at most `longestWait`.
[[nodiscard]] POSHOST_EXPORT std::chrono::milliseconds longestWaitAfter(int attempts);

/// The wait after so many attempts: `chance` of `longestWaitAfter`, rounded down to milliseconds.
/// @param chance a fresh random number of [0, 1) for every call; one outside counts as the nearer
///               end, one that is no number as 0.
[[nodiscard]] POSHOST_EXPORT std::chrono::milliseconds waitAfter(int attempts, double chance);

/// The time from which on a message may be sent again; one that is not later than `now` means at
/// once.
/// @param now         what the clock says; valid.
/// @param lastAttempt when the last attempt began. One in the future was noted before the clock was
///                    set back and counts as now, so no wait is longer than `longestWait`. An
///                    invalid time counts as now too.
/// @param attempts    attempts so far; 0 or less: at once.
/// @param chance      as for `waitAfter`.
[[nodiscard]] POSHOST_EXPORT QDateTime nextAttempt(
    const QDateTime &now, const QDateTime &lastAttempt, int attempts, double chance);

/// Whether a message whose next attempt was noted for that time may be sent now. A time further off
/// than any wait reaches was noted before the clock was set back: such a message is due at once
/// instead of waiting until the clock has caught up. An invalid time was never noted: due.
[[nodiscard]] POSHOST_EXPORT bool isDue(const QDateTime &now, const QDateTime &nextAttempt);

} // namespace backoff

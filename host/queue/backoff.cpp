#include "host/queue/backoff.h"

#include <algorithm>
#include <cstdint>

namespace backoff {

std::chrono::milliseconds longestWaitAfter(int attempts)
{
    if (attempts <= 0)
        return std::chrono::milliseconds::zero();
    // Ends at the cap, after a few rounds, however many attempts there were: nothing overflows.
    auto wait = firstWait;
    for (int doubled = 1; doubled < attempts && wait < longestWait; ++doubled)
        wait *= 2;
    return std::min(wait, longestWait);
}

std::chrono::milliseconds waitAfter(int attempts, double chance)
{
    // Written so that what is no number fails the comparison.
    const double share = chance > 0 ? std::min(chance, 1.0) : 0;
    const auto longest = static_cast<double>(longestWaitAfter(attempts).count());
    return std::chrono::milliseconds(static_cast<std::int64_t>(longest * share));
}

QDateTime nextAttempt(
    const QDateTime &now, const QDateTime &lastAttempt, int attempts, double chance)
{
    if (attempts <= 0)
        return now;
    const QDateTime from = lastAttempt.isValid() ? std::min(lastAttempt, now) : now;
    return from.addDuration(waitAfter(attempts, chance));
}

bool isDue(const QDateTime &now, const QDateTime &nextAttempt)
{
    // A time that was never noted is earlier than any other.
    return nextAttempt <= now || nextAttempt > now.addDuration(longestWait);
}

} // namespace backoff

#include "host/queue/backoff.h"

#include <algorithm>

namespace backoff {

namespace {

std::chrono::milliseconds part(std::chrono::milliseconds whole, double share)
{
    // Written so that what is no number fails the comparison.
    const double inRange = share > 0 ? std::min(share, 1.0) : 0;
    return std::chrono::milliseconds(
        static_cast<std::chrono::milliseconds::rep>(static_cast<double>(whole.count()) * inRange));
}

} // namespace

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

QDateTime nextAttempt(
    const QDateTime &now, const QDateTime &lastAttempt, int attempts, double chance)
{
    if (attempts <= 0)
        return now;
    const QDateTime from = lastAttempt.isValid() ? std::min(lastAttempt, now) : now;
    return from.addDuration(part(longestWaitAfter(attempts), chance));
}

bool isDue(const QDateTime &now, const QDateTime &nextAttempt)
{
    // A time that was never noted is earlier than any other.
    return nextAttempt <= now || nextAttempt > now.addDuration(longestWait);
}

} // namespace backoff

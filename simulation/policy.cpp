#include "simulation/policy.h"

#include "host/queue/backoff.h"

#include <algorithm>
#include <cmath>

namespace simulation {

namespace {

Moment withoutJitter(int attempts, double /*chance*/)
{
    return backoff::longestWaitAfter(attempts);
}

WaitRule always(Moment wait)
{
    return [wait](int /*attempts*/, double /*chance*/) { return wait; };
}

std::string nameOf(const Doubling &doubling)
{
    const auto seconds = [](Moment wait) {
        return std::to_string(std::chrono::floor<std::chrono::seconds>(wait).count());
    };
    return "full jitter, " + seconds(doubling.first) + " to " + seconds(doubling.longest) + " s";
}

Policy chosen(const PolicyNumbers &numbers)
{
    Policy policy;
    policy.name = "chosen";
    policy.wait = backoff::waitAfter;
    policy.failuresToStop = numbers.failuresToStop;
    return policy;
}

Policy other(std::string name, WaitRule wait, const PolicyNumbers &numbers)
{
    Policy policy = chosen(numbers);
    policy.name = std::move(name);
    policy.wait = std::move(wait);
    return policy;
}

Policy noWait(const PolicyNumbers &numbers)
{
    Policy policy = other("no wait", always(Moment(0)), numbers);
    policy.failuresToStop = 0;
    policy.forgets = true;
    return policy;
}

// The chosen policy with one part changed.
Policy passesToTheEnd(const PolicyNumbers &numbers)
{
    Policy policy = chosen(numbers);
    policy.name = "passes to the end";
    policy.failuresToStop = 0;
    return policy;
}

Policy severalAtOnce(const PolicyNumbers &numbers)
{
    Policy policy = chosen(numbers);
    policy.name = std::to_string(numbers.requestsAtOnce) + " at a time";
    policy.requestsAtOnce = numbers.requestsAtOnce;
    return policy;
}

Policy messagesWaitAlone(const PolicyNumbers &numbers)
{
    Policy policy = chosen(numbers);
    policy.name = "only messages wait";
    policy.tillWaits = false;
    return policy;
}

Policy trustsSlowly(const PolicyNumbers &numbers)
{
    Policy policy = chosen(numbers);
    policy.name = "trusts slowly";
    policy.trustsSlowly = true;
    return policy;
}

} // namespace

WaitRule fullJitter(const Doubling &doubling)
{
    return [doubling](int attempts, double chance) {
        const double doubled
            = std::ldexp(static_cast<double>(doubling.first.count()), attempts - 1);
        const double longest = std::min(doubled, static_cast<double>(doubling.longest.count()));
        return Moment(static_cast<Moment::rep>(longest * chance));
    };
}

Moment equalJitter(int attempts, double chance)
{
    return backoff::longestWaitAfter(attempts) / 2 + backoff::waitAfter(attempts, chance) / 2;
}

std::vector<Policy> policies(const PolicyNumbers &numbers)
{
    std::vector<Policy> all{chosen(numbers), noWait(numbers),
        other("fixed wait", always(numbers.fixedWait), numbers),
        other("without jitter", withoutJitter, numbers),
        other("equal jitter", equalJitter, numbers), messagesWaitAlone(numbers),
        passesToTheEnd(numbers), severalAtOnce(numbers), trustsSlowly(numbers)};
    for (const Doubling &doubling : numbers.otherWaits)
        all.push_back(other(nameOf(doubling), fullJitter(doubling), numbers));
    return all;
}

} // namespace simulation

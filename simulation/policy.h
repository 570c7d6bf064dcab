#pragma once

#include "simulation/moment.h"

#include <functional>
#include <string>
#include <vector>

namespace simulation {

/// How long to wait after so many attempts that failed, by a chance of [0, 1).
using WaitRule = std::function<Moment(int attempts, double chance)>;

/// How a till goes about its backlog.
struct Policy
{
    std::string name;
    WaitRule wait;
    int failuresToStop = 0; ///< failures in a row that end a pass early; 0: it never ends early
    /// After a pass that ended early the till waits as a whole, by the same rule: for attempts
    /// count the passes in a row that ended so, until something is delivered. Otherwise the next
    /// pass begins when the first of the messages that failed is due.
    bool tillWaits = true;
    /// After a pass that ended early a single failure ends the next one, and what is delivered
    /// takes one off the count of such passes. Otherwise each pass counts its failures anew, and a
    /// delivery clears the count.
    bool trustsSlowly = false;
    int requestsAtOnce = 1; ///< of one till
    bool forgets = false; ///< there is no wait, so nothing depends on earlier attempts
};

/// The longest wait after the first attempt, doubled up to the longest of all.
struct Doubling
{
    Moment first{}; ///< above 0
    Moment longest{};
};

/// The numbers of the policies that are compared.
struct PolicyNumbers
{
    int failuresToStop = 3;
    int requestsAtOnce = 4; ///< of the policy that sends in parallel
    Moment fixedWait = std::chrono::seconds(30);
    std::vector<Doubling> otherWaits; ///< each one makes another policy with full jitter
};

/// Full jitter with other numbers than the product's.
[[nodiscard]] WaitRule fullJitter(const Doubling &doubling);
/// Half of the longest wait, and up to as much again by chance.
[[nodiscard]] Moment equalJitter(int attempts, double chance);

/// Every policy that is compared, the chosen one first: it waits as the product does.
[[nodiscard]] std::vector<Policy> policies(const PolicyNumbers &numbers);

} // namespace simulation

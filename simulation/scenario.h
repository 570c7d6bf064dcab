#pragma once

#include "simulation/service.h"

#include <cstdint>
#include <optional>

namespace simulation {

/// What happens, whatever the tills' policy.
struct Scenario
{
    int tills = 0;
    Moment outage{}; ///< how long the service is away
    /// Nothing: a till begins to send with its first message. Otherwise all of them begin at the
    /// same moment, so long before the return of the service: switched on together after a power
    /// cut.
    std::optional<Moment> together;
    double chequesPerHour = 0; ///< that each till closes during the outage, on average
    ServiceSize service;
    /// Of an exchange until its request is at the service, above 0: the average; each one takes
    /// between half of it and one and a half times as long.
    Moment overhead{};
    Moment limit{}; ///< so long a till waits for an answer
    // The simulation ends at the latest
    Moment giveUp{}; ///< so long after the return of the service, or
    std::int64_t mostRequests = 0; ///< after so many requests.
    std::uint64_t seed = 0;
};

} // namespace simulation

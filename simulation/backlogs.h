#pragma once

#include "simulation/backlog.h"
#include "simulation/scenario.h"

namespace simulation {

/// What every till enqueues during the outage: customers come by chance, independently of each
/// other. The same for the same seed, whatever the policy.
[[nodiscard]] std::vector<Backlog> backlogsOf(const Scenario &scenario);

} // namespace simulation

#pragma once

#include "simulation/measures.h"
#include "simulation/scenario.h"

#include <optional>
#include <string>
#include <vector>

namespace simulation {

/// How one policy did.
struct Curve
{
    std::string policy;
    Measures measures;
};

/// An SVG document with two panels over the minutes since the return of the service: what share of
/// the backlog is delivered, and the requests a second at the service beside its capacity
/// (logarithmic). The first curve is drawn above the others.
/// @param end where it ends, since the return of the service; nothing: with the last request.
[[nodiscard]] std::string plotOf(const Scenario &scenario, const std::vector<Curve> &curves,
    const std::optional<Moment> &end = {});

} // namespace simulation

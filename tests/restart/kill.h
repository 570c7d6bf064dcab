#pragma once

#include "tests/restart/relay.h"
#include "tests/restart/scenario.h"

#include <QString>

#include <optional>
#include <vector>

namespace restart {

/// Where and how a till is killed.
struct Kill
{
    std::size_t command = 0; ///< its place among the scenario's, from 0
    /// In the middle of that command; without it after the command, when its object is there.
    std::optional<Moment> moment;
    int exchange = 0; ///< of that command, from 1; 0 without a moment
};

/// A scenario in which a till is killed once.
struct KillCase
{
    const Scenario *scenario = nullptr; ///< not owned
    Kill kill;

    /// "points:21:acted:1": scenario, line, kind and, where there is one, exchange.
    [[nodiscard]] QString name() const;
};

/// Each command of a scenario, killed in every way.
/// @param scenario  must outlive the cases.
/// @param exchanges how many exchanges with the service each command makes.
std::vector<KillCase> killsOf(const Scenario &scenario, const std::vector<int> &exchanges);

/// A spread of the cases, the same every time: of each scenario one of each kind, where it has
/// them.
std::vector<KillCase> sampleOf(const std::vector<KillCase> &cases);

} // namespace restart

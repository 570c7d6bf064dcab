#pragma once

#include "tests/restart/scenario.h"

#include <QString>

#include <vector>

namespace restart {

/// How a till is killed at a command.
enum class Manner
{
    After, ///< when the command's object is there
    Asked, ///< when it has asked the service
    Acted, ///< when the service has acted and the till does not know
    Answered, ///< when the service's answer is on its way to it
    Written ///< when it has just written something on disk
};

/// Where and how a till is killed.
struct Kill
{
    std::size_t command = 0; ///< its place among the scenario's, from 0
    Manner manner = Manner::After;
    /// Which of the command's exchanges or writes, from 1; 0 after the command.
    int occasion = 0;
    /// Whether the cashier gives the command again where it is still due.
    bool isGivenAgain = true;
};

/// What a command did in a scenario that nobody disturbed.
struct Activity
{
    int exchanges = 0; ///< with the service
    int writes = 0; ///< into the state folder
};

/// A scenario in which a till is killed once.
struct KillCase
{
    const Scenario *scenario = nullptr; ///< not owned
    Kill kill;

    /// "points:21:acted:1": scenario, line, manner and, where there is one, occasion.
    /// "given-up" behind it: the command is not given again.
    [[nodiscard]] QString name() const;
};

/// Each command of a scenario, killed in every way.
/// @param scenario   must outlive the cases.
/// @param activities of each command.
std::vector<KillCase> killsOf(const Scenario &scenario, const std::vector<Activity> &activities);

/// A spread of the cases, the same every time: of each scenario one of each manner, where
/// it has them.
std::vector<KillCase> sampleOf(const std::vector<KillCase> &cases);

} // namespace restart

#pragma once

#include "simulation/policy.h"
#include "simulation/scenario.h"

#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace simulation {

/// The command line cannot be used; `what()` is one line that names the option.
class OptionsError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

struct Options
{
    std::vector<Scenario> scenarios; ///< one for each number of tills, in the order given
    std::vector<Policy> policies;
    std::string plotFile; ///< empty: no plot
    std::optional<Moment> plotEnd; ///< since the return of the service; nothing: the last request
};

/// What the command line asks for. Nothing when help was asked for and printed.
/// @throws OptionsError
[[nodiscard]] std::optional<Options> readOptions(int argc, const char *const *argv);

} // namespace simulation

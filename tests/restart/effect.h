#pragma once

#include "tests/restart/scenario.h"

#include <nlohmann/json.hpp>

namespace restart {

/// Whether a cashier who looks at the till sees that a command has done its work already, though
/// the till was killed in the middle of it. What need not be given twice is not: a payment or a
/// position would be there twice. `total` and `deliver` may be given again in any case.
/// @param before the open document before the command, null when there was none.
/// @param now    the open document of the till that was started again, null when there is none.
bool hasWorked(const Command &command, const nlohmann::json &before, const nlohmann::json &now);

} // namespace restart

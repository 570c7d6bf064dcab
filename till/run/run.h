#pragma once

#include "till/exitstatus.h"
#include "till/run/options.h"

namespace till {

/// `korvel-till run`: sells by a script, by standard input or at a prompt. What is wrong stands on
/// standard error in one line.
[[nodiscard]] ExitStatus run(const RunOptions &options);

} // namespace till

#pragma once

#include "till/exitstatus.h"
#include "till/run/options.h"

namespace till {

/// `korvel-till window`: becomes `korvel-till-window`, a program of its own beside this one, so
/// that who only sells by script or delivers the queue needs no windows. Returns only when it
/// cannot be started; why stands on standard error.
[[nodiscard]] ExitStatus startWindow(const RunOptions &options);

} // namespace till

#pragma once

#include <functional>

namespace till {

/// Carries a command out and tells what is wrong on standard error in one line.
/// @return the command's exit status: 2 where it cannot be done, 3 where configuration, state
///         folder or another file cannot be used.
[[nodiscard]] int reportingErrors(const std::function<int()> &command);

} // namespace till

#pragma once

#include <chrono>

namespace simulation {

/// Virtual time: milliseconds since the service went away, and spans of it.
using Moment = std::chrono::milliseconds;

} // namespace simulation

#pragma once

/// The code that the service sends the customer before points are written off.
namespace verification {

/// The value of the limit that stands for none: no code is asked then, whatever the amount.
inline constexpr double noLimit = -1.0;

/// Whether a write-off of that many points needs a code: only when it exceeds the limit.
[[nodiscard]] bool isRequired(double points, double limit);

} // namespace verification

#pragma once

#include "host/export.h"

/// Comparing and rounding amounts of money and points, in one place.
namespace money {

/// Two amounts that differ by less are equal; an amount counts only when it is greater.
inline constexpr double tolerance = 0.005;

[[nodiscard]] POSHOST_EXPORT bool equal(double left, double right);
/// True when the amount counts: greater than the tolerance.
[[nodiscard]] POSHOST_EXPORT bool counts(double amount);
/// Rounded to kopecks, halves away from zero.
[[nodiscard]] POSHOST_EXPORT double roundedToKopecks(double amount);

} // namespace money

#pragma once

#include <vector>

namespace soak {

/// A straight line's slope through points that scatter, with what is known of it.
struct Slope
{
    double value = 0.0;
    double halfWidth = 0.0; ///< of the 95 % interval

    /// Whether the interval holds 0, so that nothing says that there is a slope.
    [[nodiscard]] bool maybeNone() const;
};

/// The least squares line's slope through y over x = 0, 1, 2 ….
/// @param y at least three values.
Slope slopeOf(const std::vector<double> &y);

} // namespace soak

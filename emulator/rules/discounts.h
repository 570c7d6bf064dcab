#pragma once

#include "emulator/rules/calculation.h"

#include <vector>

namespace emulator {

/// Takes discounts off the positions, each of what the one before left: article discounts,
/// then the cheque's, then the coupons' in the order of the cheque. No position gets cheaper
/// than its minimum; what does not fit is not granted.
void applyDiscounts(
    Positions &positions, const ServiceData &data, const std::vector<Reduction> &coupons);

} // namespace emulator

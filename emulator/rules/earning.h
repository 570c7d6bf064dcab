#pragma once

#include "emulator/rules/calculation.h"

namespace emulator {

/// Fills what the positions and the cheque earn, from what is really paid: the sums after
/// discounts less the points spent.
void earn(Calculation &calculation, const Earning &earning);

} // namespace emulator

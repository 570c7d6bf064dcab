#pragma once

#include "emulator/rules/calculation.h"

namespace emulator {

/// Points that may pay for the cheque: the least of the balance, the share of the sum after
/// discounts and what the positions' minimum prices leave.
Amount availablePayment(const Calculation &calculation, Percent share, Amount balance);

/// Spreads the points over the positions in proportion to their sums after discounts (above
/// their minimum), exact to the hundredth. `points` must not exceed `availablePayment`.
void spend(Positions &positions, Amount points);

} // namespace emulator

#pragma once

#include <QString>

namespace till {

/// An amount of money or points as people read it: two decimals.
[[nodiscard]] QString amountText(double amount);
/// A quantity as people read it: as many decimals as it has.
[[nodiscard]] QString quantityText(double quantity);

} // namespace till

#pragma once

#include <QString>

/// How figures are written in requests: fixed point with a point as separator and no grouping.
/// Figures that are not finite are written as Qt writes them.
namespace korvelLoyaltyOnline {

/// Money, points and per cent, with two decimals.
[[nodiscard]] inline QString amountText(double amount)
{
    constexpr int decimals = 2;
    return QString::number(amount, 'f', decimals);
}

/// Quantities of goods, with three decimals.
[[nodiscard]] inline QString quantityText(double quantity)
{
    constexpr int decimals = 3;
    return QString::number(quantity, 'f', decimals);
}

} // namespace korvelLoyaltyOnline

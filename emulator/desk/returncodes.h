#pragma once

namespace emulator::returncodes {

/// Codes that the service answers on its own account. Tills show the text of those above 80000
/// to the cashier, except 81400, for which they have a text of their own.
inline constexpr int success = 0;
inline constexpr int unknownCard = 80241;
inline constexpr int cardNotServed = 80420;
inline constexpr int wrongConfirmation = 81330;
inline constexpr int notEnoughPoints = 81400; ///< the answer holds all figures nevertheless
inline constexpr int otherPositions = 83000; ///< the number is registered with other positions
inline constexpr int unknownSale = 89184; ///< nothing to return or to roll back

} // namespace emulator::returncodes

#pragma once

namespace emulator::returncodes {

/// Codes that the service answers on its own account. Every till shows the text of these to the
/// cashier, except of 81400, for which it has a text of its own. With any other code above zero a
/// till goes offline unless it is configured to show that one too.
inline constexpr int success = 0;
inline constexpr int unknownCard = 80241;
inline constexpr int cardNotServed = 80420;
inline constexpr int wrongConfirmation = 81330;
/// Fewer than the cheque's exchange takes. It shares the number of a write-off that cannot be made:
/// with one that tills do not show they would go offline and sell the cheque at the lower price.
inline constexpr int notEnoughStickers = 81330;
inline constexpr int notEnoughPoints = 81400; ///< the answer holds all figures nevertheless
inline constexpr int otherPositions = 83000; ///< the number is registered with other positions
inline constexpr int unknownSale = 89184; ///< nothing to return or to roll back

} // namespace emulator::returncodes

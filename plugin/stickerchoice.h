#pragma once

#include "plugin/stickeroffer.h"

namespace stickers {

/// Up to where each way of choosing is gone. A balance has no upper bound, memory and the cashier's
/// patience have.
struct ChoiceLimits
{
    /// Cells up to which the table is quick enough for any offers.
    qint64 smallTable = qint64{1} << 18;
    /// Steps of all rows together: 8 MiB, and up to three times that while their list grows.
    std::size_t steps = std::size_t{1} << 19;
    /// Cells of a table: one bit each, 16 MiB, and under half a second.
    qint64 tableCells = qint64{1} << 27;
    /// Stickers that a table may cover: 8 bytes each, 32 MiB.
    int tableStickers = 1 << 22;
};

struct Choice
{
    Chosen chosen;
    bool isBest = true; ///< false: the limits allowed no better than the order of the offers
};

/// The offers with the greatest total value that can be paid, as `chooseByTable` defines them.
///
/// A small table is computed as such, others by their steps. Offers that are worth the same per
/// sticker have so many steps that the table is taken after all where it fits; where it does not,
/// each offer in its order is taken while the stickers last.
/// @param offers in their order of profit; values may be anything, negative and not finite too.
/// @param capacity stickers to spend; 0 or less chooses nothing.
[[nodiscard]] Choice choose(
    const Offers &offers, int capacity, const ChoiceLimits &limits = ChoiceLimits());

} // namespace stickers

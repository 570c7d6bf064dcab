#pragma once

#include "plugin/stickeroffer.h"

namespace stickers {

/// Memory that `chooseByTable` needs, in cells: one per offer and sticker.
[[nodiscard]] qint64 tableCells(const Offers &offers, int capacity);

/// The choice by the table of the best totals: one row per offer, one column per sticker that can
/// be spent. It defines what the right choice is, with three peculiarities that are deliberate: a
/// textbook solution without them gives customers other discounts for the same cheque.
/// - column 0 stays 0: with no sticker left not even an offer that costs nothing is taken;
/// - a tie is not taken;
/// - on the way back an offer counts as taken when it adds 0.005 or more, whatever it added to
///   arrive at the best total.
///
/// Only one row is held, and one bit per cell for the way back.
/// @param capacity stickers to spend; 0 or less chooses nothing.
[[nodiscard]] Chosen chooseByTable(const Offers &offers, int capacity);

} // namespace stickers

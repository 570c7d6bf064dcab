#pragma once

#include "plugin/stickeroffer.h"

/// The choice as it is defined: the whole table of best totals, cell by cell. Simple, and as large
/// as the balance; what the other ways are measured by.
/// @param capacity stickers to spend; 0 or less chooses nothing.
[[nodiscard]] stickers::Chosen chooseByLiteralTable(const stickers::Offers &offers, int capacity);

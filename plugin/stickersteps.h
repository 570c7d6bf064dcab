#pragma once

#include "plugin/stickeroffer.h"

#include <optional>

namespace stickers {

/// Chooses exactly what `chooseByTable` chooses, in memory that does not grow with the capacity.
///
/// A row of the table only rises, in steps; each row is held as the list of its steps. Of those
/// only the ones that matter to the way back are kept:
/// - of the columns that all offers below together cannot reach down to, only the last step;
/// - of the rest only steps from which the best total can still come. The way back leaves out an
///   offer that adds less than 0.005, so it may lose up to that much in each row and a step is
///   dropped only when it falls short of a known total by more than these losses.
///
/// @param offers values must be finite, their sum too.
/// @param capacity stickers to spend; 0 or less chooses nothing.
/// @param mostSteps how many steps may be held, in all rows together.
/// @return nothing when there are more steps than that.
[[nodiscard]] std::optional<Chosen> chooseBySteps(
    const Offers &offers, int capacity, std::size_t mostSteps);

} // namespace stickers

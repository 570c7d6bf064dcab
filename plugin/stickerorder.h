#pragma once

#include "plugin/stickeroffer.h"

namespace stickers {

/// True when `left` comes first: it has more value, or as much (to 0.005) for fewer stickers.
[[nodiscard]] bool isMoreProfitable(const Offer &left, const Offer &right);

/// Indices of the offers, the most profitable first; of two where neither comes first, the one that
/// stood first stays so.
[[nodiscard]] std::vector<std::size_t> profitOrder(const Offers &offers);

} // namespace stickers

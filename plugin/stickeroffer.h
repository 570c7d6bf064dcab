#pragma once

#include <QtGlobal>

#include <vector>

namespace stickers {

/// One sticker action as the choice sees it.
struct Offer
{
    qint64 cost = 0; ///< in stickers, for all its units
    double value = 0.0; ///< discount in money, for all its units
};

using Offers = std::vector<Offer>;

/// One flag per offer, in the order of the offers.
using Chosen = std::vector<bool>;

/// An offer that costs less than nothing, or more than there is, is never taken.
[[nodiscard]] inline bool isPayable(const Offer &offer, int capacity)
{
    return offer.cost >= 0 && offer.cost <= capacity;
}

} // namespace stickers

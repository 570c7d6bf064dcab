#include "plugin/stickerchoice.h"

#include "common/host/documents.h"
#include "plugin/stickersteps.h"
#include "plugin/stickertable.h"

#include <cmath>
#include <utility>

namespace stickers {

namespace {

/// Whether rows over these offers only rise, and their totals can be compared by differences. What
/// is not payable, or takes money away, changes no row.
bool haveSteps(const Offers &offers, int capacity)
{
    double sum = 0.0;
    for (const Offer &offer : offers)
        if (isPayable(offer, capacity) && !(offer.value <= 0.0))
            sum += offer.value;
    return std::isfinite(sum);
}

Chosen chooseInOrder(const Offers &offers, int capacity)
{
    Chosen chosen(offers.size(), false);
    for (std::size_t index = 0; index < offers.size() && capacity > 0; ++index) {
        const Offer &offer = offers[index];
        if (!isPayable(offer, capacity) || !(offer.value >= money::tolerance))
            continue;
        chosen[index] = true;
        capacity -= static_cast<int>(offer.cost);
    }
    return chosen;
}

} // namespace

Choice choose(const Offers &offers, int capacity, const ChoiceLimits &limits)
{
    const qint64 cells = tableCells(offers, capacity);
    if (cells <= limits.smallTable)
        return {chooseByTable(offers, capacity)};
    if (haveSteps(offers, capacity))
        if (auto chosen = chooseBySteps(offers, capacity, limits.steps))
            return {std::move(*chosen)};
    if (cells <= limits.tableCells && capacity <= limits.tableStickers)
        return {chooseByTable(offers, capacity)};
    return {chooseInOrder(offers, capacity), false};
}

} // namespace stickers

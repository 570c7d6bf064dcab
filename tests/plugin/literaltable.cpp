#include "tests/plugin/literaltable.h"

#include <cmath>

using Table = std::vector<std::vector<double>>;

namespace {

Table bestTotals(const stickers::Offers &offers, std::size_t capacity)
{
    Table best(offers.size() + 1, std::vector<double>(capacity + 1, 0.0));
    for (std::size_t row = 1; row <= offers.size(); ++row) {
        const auto &offer = offers[row - 1];
        for (std::size_t column = 1; column <= capacity; ++column) {
            best[row][column] = best[row - 1][column];
            if (offer.cost < 0 || static_cast<qint64>(column) < offer.cost)
                continue;
            const double take
                = offer.value + best[row - 1][column - static_cast<std::size_t>(offer.cost)];
            if (!(take <= best[row - 1][column]))
                best[row][column] = take;
        }
    }
    return best;
}

} // namespace

stickers::Chosen chooseByLiteralTable(const stickers::Offers &offers, int capacity)
{
    stickers::Chosen chosen(offers.size(), false);
    if (capacity <= 0)
        return chosen;
    auto column = static_cast<std::size_t>(capacity);
    const Table best = bestTotals(offers, column);
    for (std::size_t row = offers.size(); row >= 1; --row) {
        if (!(std::abs(best[row][column] - best[row - 1][column]) >= 0.005))
            continue;
        chosen[row - 1] = true;
        column -= static_cast<std::size_t>(offers[row - 1].cost);
    }
    return chosen;
}

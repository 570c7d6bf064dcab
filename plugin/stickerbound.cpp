#include "plugin/stickerbound.h"

#include <algorithm>
#include <limits>
#include <numeric>

namespace stickers {

namespace {

double worth(const Offer &offer)
{
    return offer.cost == 0 ? std::numeric_limits<double>::infinity()
                           : offer.value / static_cast<double>(offer.cost);
}

} // namespace

RestBound::RestBound(const Offers &offers)
    : m_offers(offers)
    , m_byWorth(offers.size())
{
    std::iota(m_byWorth.begin(), m_byWorth.end(), std::size_t{0});
    std::stable_sort(m_byWorth.begin(), m_byWorth.end(),
        [&offers](auto left, auto right) { return worth(offers[left]) > worth(offers[right]); });
    m_rest.reserve(offers.size());
    m_totals.reserve(offers.size() + 1);
}

void RestBound::startRow(std::size_t firstRow)
{
    m_rest.clear();
    m_totals.assign(1, {});
    for (const std::size_t row : m_byWorth) {
        if (row < firstRow)
            continue;
        const Offer &offer = m_offers[row];
        m_rest.push_back(offer);
        m_totals.push_back(
            {m_totals.back().cost + offer.cost, m_totals.back().value + offer.value});
    }
    m_whole = m_rest.size();
}

double RestBound::most(qint64 stickers)
{
    while (m_totals[m_whole].cost > stickers)
        --m_whole;
    const Offer &whole = m_totals[m_whole];
    if (m_whole == m_rest.size())
        return whole.value;
    return whole.value + static_cast<double>(stickers - whole.cost) * worth(m_rest[m_whole]);
}

} // namespace stickers

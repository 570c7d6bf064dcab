#pragma once

#include "plugin/stickeroffer.h"

namespace stickers {

/// How much the offers of the rows below can still add to a total: those with most value per
/// sticker first, the last one in part.
class RestBound
{
public:
    /// @param offers costs not negative, values greater than 0; must outlive the object.
    explicit RestBound(const Offers &offers);

    /// From here on only the offers from that row on count.
    void startRow(std::size_t firstRow);
    /// Money that no selection of them exceeds.
    /// @param stickers left for them; not greater than in the call before in the same row.
    double most(qint64 stickers);
    /// Money that a selection reaches for the stickers of the last call of `most`.
    [[nodiscard]] double reached() const { return m_totals[m_whole].value; }
    /// Stickers that this selection costs.
    [[nodiscard]] qint64 spent() const { return m_totals[m_whole].cost; }

private:
    const Offers &m_offers;
    std::vector<std::size_t> m_byWorth; ///< rows, most value per sticker first
    Offers m_rest; ///< those that count, in that order
    Offers m_totals; ///< of the first none, one, two... of them
    std::size_t m_whole = 0; ///< how many of them are taken as a whole
};

} // namespace stickers

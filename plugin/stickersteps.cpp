#include "plugin/stickersteps.h"

#include "common/host/documents.h"
#include "plugin/stickerbound.h"

#include <algorithm>
#include <limits>
#include <numeric>

namespace stickers {

namespace {

/// From this column on a row has this total, up to the next step.
struct Step
{
    qint64 column = 0;
    double total = 0.0;
};

double sumOf(const Offers &offers)
{
    return std::accumulate(offers.begin(), offers.end(), 0.0,
        [](double sum, const Offer &offer) { return sum + offer.value; });
}

/// What rounding can add up to when totals are compared that were summed in different orders: the
/// totals of the table, those known to be reached, those not exceeded, and the differences between
/// rows are off by a few additions per offer each.
double roundingOf(const Offers &offers)
{
    constexpr double additionsPerOffer = 16.0;
    return additionsPerOffer * static_cast<double>(offers.size())
        * std::numeric_limits<double>::epsilon() * sumOf(offers);
}

/// Stands where a row has no step: all of them were dropped.
constexpr double lessThanAny = -std::numeric_limits<double>::infinity();

class Rows
{
public:
    Rows(const Offers &offers, int capacity, std::size_t mostSteps)
        : m_offers(offers)
        , m_capacity(capacity)
        , m_mostSteps(mostSteps)
        , m_rounding(roundingOf(offers))
        , m_bound(offers)
        , m_steps{{}}
        , m_begins{0, 1}
    {
        for (const Offer &offer : offers)
            m_costBelow += offer.cost;
    }

    /// False when there are too many steps.
    bool build()
    {
        for (std::size_t row = 0; row < m_offers.size(); ++row) {
            startRow(row);
            mergeRow(m_begins[row], m_begins[row + 1], m_offers[row]);
            m_begins.push_back(m_steps.size());
            if (m_steps.size() > m_mostSteps)
                return false;
        }
        return true;
    }

    [[nodiscard]] Chosen walkBack() const
    {
        Chosen chosen(m_offers.size(), false);
        qint64 column = m_capacity;
        for (std::size_t row = m_offers.size(); row-- > 0;) {
            if (total(row + 1, column) - total(row, column) < money::tolerance)
                continue;
            chosen[row] = true;
            column -= m_offers[row].cost;
        }
        return chosen;
    }

private:
    void startRow(std::size_t row)
    {
        m_bound.startRow(row + 1);
        m_costBelow -= m_offers[row].cost;
        m_lowestColumn = std::max<qint64>(m_capacity - m_costBelow, 0);
        const auto rowsBelow = static_cast<double>(m_offers.size() - row - 1);
        m_slack = rowsBelow * money::tolerance + m_rounding;
        m_best = lessThanAny;
    }

    /// The steps of the row above, and the same with the offer taken, in the order of the columns.
    void mergeRow(std::size_t left, std::size_t end, const Offer &offer)
    {
        const auto taken = [this, &offer](std::size_t step) {
            // Column 0 stays 0 also for an offer that costs nothing.
            return Step{std::max<qint64>(m_steps[step].column + offer.cost, 1),
                m_steps[step].total + offer.value};
        };
        std::size_t takenFrom = left;
        // Never ahead of what is left: no offer gives stickers back.
        while (takenFrom < end) {
            const bool takesNext = left == end || taken(takenFrom).column < m_steps[left].column;
            const Step next = takesNext ? taken(takenFrom++) : m_steps[left++];
            if (next.column > m_capacity)
                return;
            add(next);
        }
    }

    void add(const Step &step)
    {
        if (step.total <= m_best)
            return;
        m_best = step.total;
        if (step.total + m_bound.most(m_capacity - step.column) < m_known - m_slack)
            return;
        learn(step);
        if (m_steps.size() > m_begins.back() && replacesLast(step))
            m_steps.pop_back();
        m_steps.push_back(step);
    }

    /// A total that can be reached for certain. Only when a sticker is left in the end, because
    /// without one the offers that cost nothing may not all be taken.
    void learn(const Step &step)
    {
        if (m_bound.spent() < m_capacity)
            m_known = std::max(m_known, step.total + m_bound.reached());
    }

    [[nodiscard]] bool replacesLast(const Step &step) const
    {
        return step.column <= m_lowestColumn || step.column == m_steps.back().column;
    }

    /// The total in that row, counted from 1, up to that column; row 0 stands for no offers.
    [[nodiscard]] double total(std::size_t row, qint64 column) const
    {
        const auto begin = m_steps.begin() + static_cast<std::ptrdiff_t>(m_begins[row]);
        const auto end = m_steps.begin() + static_cast<std::ptrdiff_t>(m_begins[row + 1]);
        const auto behind = std::upper_bound(begin, end, column,
            [](qint64 wanted, const Step &step) { return wanted < step.column; });
        if (behind == begin)
            return lessThanAny;
        return std::prev(behind)->total;
    }

    const Offers &m_offers;
    qint64 m_capacity;
    std::size_t m_mostSteps;
    double m_rounding;
    RestBound m_bound;
    std::vector<Step> m_steps; ///< of all rows, one behind the other
    std::vector<std::size_t> m_begins; ///< of each row, and the end of the last
    double m_known = 0.0; ///< a total that the table reaches
    qint64 m_costBelow = 0; ///< of all offers below the row
    qint64 m_lowestColumn = 0; ///< that the way back can reach in the row
    double m_slack = 0.0; ///< by which a step may fall short of the known total
    double m_best = lessThanAny; ///< total of the row so far, dropped steps included
};

/// Those that can change a total.
std::vector<std::size_t> rowsThatCount(const Offers &offers, int capacity)
{
    std::vector<std::size_t> rows;
    for (std::size_t row = 0; row < offers.size(); ++row)
        if (isPayable(offers[row], capacity) && offers[row].value > 0.0)
            rows.push_back(row);
    return rows;
}

} // namespace

std::optional<Chosen> chooseBySteps(const Offers &offers, int capacity, std::size_t mostSteps)
{
    Chosen chosen(offers.size(), false);
    if (capacity <= 0)
        return chosen;
    const auto counting = rowsThatCount(offers, capacity);
    Offers counted;
    for (const std::size_t row : counting)
        counted.push_back(offers[row]);
    Rows rows(counted, capacity, mostSteps);
    if (!rows.build())
        return std::nullopt;
    const Chosen ofCounted = rows.walkBack();
    for (std::size_t index = 0; index < counting.size(); ++index)
        chosen[counting[index]] = ofCounted[index];
    return chosen;
}

} // namespace stickers

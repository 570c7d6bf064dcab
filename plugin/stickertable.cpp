#include "plugin/stickertable.h"

#include "common/host/documents.h"

#include <algorithm>
#include <cmath>

namespace stickers {

namespace {

class Table
{
public:
    Table(const Offers &offers, int capacity)
        : m_offers(offers)
        , m_capacity(static_cast<std::size_t>(capacity))
        , m_totals(m_capacity + 1, 0.0)
        , m_adds(offers.size() * (m_capacity + 1), false)
    {
        for (std::size_t row = 0; row < offers.size(); ++row)
            if (isPayable(offers[row], capacity))
                fillRow(row);
    }

    [[nodiscard]] Chosen walkBack() const
    {
        Chosen chosen(m_offers.size(), false);
        std::size_t column = m_capacity;
        for (std::size_t row = m_offers.size(); row-- > 0;) {
            if (!m_adds[cell(row, column)])
                continue;
            chosen[row] = true;
            column -= static_cast<std::size_t>(m_offers[row].cost);
        }
        return chosen;
    }

private:
    [[nodiscard]] std::size_t cell(std::size_t row, std::size_t column) const
    {
        return row * (m_capacity + 1) + column;
    }

    /// From the right, so that what stands to the left still belongs to the row above.
    void fillRow(std::size_t row)
    {
        const auto cost = static_cast<std::size_t>(m_offers[row].cost);
        for (std::size_t column = m_capacity; column >= std::max<std::size_t>(cost, 1); --column) {
            const double above = m_totals[column];
            const double taken = m_offers[row].value + m_totals[column - cost];
            if (taken <= above)
                continue;
            m_totals[column] = taken;
            if (std::abs(taken - above) >= money::tolerance)
                m_adds[cell(row, column)] = true;
        }
    }

    const Offers &m_offers;
    std::size_t m_capacity;
    std::vector<double> m_totals;
    std::vector<bool> m_adds;
};

} // namespace

qint64 tableCells(const Offers &offers, int capacity)
{
    return (qint64{capacity} + 1) * static_cast<qint64>(offers.size());
}

Chosen chooseByTable(const Offers &offers, int capacity)
{
    if (capacity <= 0)
        return Chosen(offers.size(), false);
    return Table(offers, capacity).walkBack();
}

} // namespace stickers

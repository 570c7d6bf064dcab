#pragma once

#include <string>
#include <vector>

namespace simulation {

/// Where values stand along an edge of a panel.
class Axis
{
public:
    /// @param from  the value at the start; above 0 where the axis is logarithmic.
    /// @param to    the value at the end, above `from`.
    /// @param start where `from` stands.
    /// @param end   where `to` stands.
    Axis(double from, double to, double start, double end, bool isLogarithmic = false);

    /// Where a value stands; one outside stands at the nearer end.
    [[nodiscard]] double at(double value) const;
    [[nodiscard]] bool holds(double value) const { return value >= m_from && value <= m_to; }
    /// Round values to mark, ascending: the powers of ten where it is logarithmic, otherwise at
    /// most ten in steps of 1, 2 or 5 times a power of ten.
    [[nodiscard]] std::vector<double> marks() const;

    [[nodiscard]] double start() const { return m_start; }
    [[nodiscard]] double end() const { return m_end; }

private:
    double m_from;
    double m_to;
    double m_start;
    double m_end;
    bool m_isLogarithmic;
};

} // namespace simulation

#include "simulation/axis.h"

#include <algorithm>
#include <cmath>

namespace simulation {

namespace {

constexpr double mostMarks = 10;
constexpr double slack = 1e-9;

double roundStep(double span)
{
    const double decade = std::pow(10.0, std::floor(std::log10(span / mostMarks)));
    for (const double factor : {1.0, 2.0, 5.0})
        if (span / (factor * decade) <= mostMarks + slack)
            return factor * decade;
    return 10 * decade;
}

} // namespace

Axis::Axis(double from, double to, double start, double end, bool isLogarithmic)
    : m_from(from)
    , m_to(to)
    , m_start(start)
    , m_end(end)
    , m_isLogarithmic(isLogarithmic)
{ }

double Axis::at(double value) const
{
    const double inside = std::clamp(value, m_from, m_to);
    const double share = m_isLogarithmic ? std::log(inside / m_from) / std::log(m_to / m_from)
                                         : (inside - m_from) / (m_to - m_from);
    return m_start + share * (m_end - m_start);
}

std::vector<double> Axis::marks() const
{
    std::vector<double> values;
    if (m_isLogarithmic) {
        const auto first = std::lround(std::ceil(std::log10(m_from) - slack));
        const auto last = std::lround(std::floor(std::log10(m_to) + slack));
        for (auto power = first; power <= last; ++power)
            values.push_back(std::pow(10.0, power));
        return values;
    }
    const double step = roundStep(m_to - m_from);
    // Adding nothing makes a plain zero of a negative one.
    for (double count = std::ceil(m_from / step - slack) + 0.0; count * step <= m_to + slack * step;
         ++count)
        values.push_back(count * step);
    return values;
}

} // namespace simulation

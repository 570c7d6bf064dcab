#include "tests/soak/slope.h"

#include <boost/math/distributions/students_t.hpp>

#include <cmath>
#include <numeric>

namespace soak {

namespace {

constexpr double upperTail = 0.025; // of the two that 95 % leave
constexpr double fitted = 2.0; // numbers: slope and height

double mean(const std::vector<double> &values)
{
    return std::accumulate(values.begin(), values.end(), 0.0) / static_cast<double>(values.size());
}

} // namespace

bool Slope::maybeNone() const
{
    return std::abs(value) <= halfWidth;
}

Slope slopeOf(const std::vector<double> &y)
{
    const auto count = static_cast<double>(y.size());
    const double middle = (count - 1.0) / 2.0;
    const double height = mean(y);
    double spread = 0.0;
    double common = 0.0;
    for (std::size_t x = 0; x < y.size(); ++x) {
        const double distance = static_cast<double>(x) - middle;
        spread += distance * distance;
        common += distance * (y[x] - height);
    }
    const double slope = common / spread;
    double rest = 0.0;
    for (std::size_t x = 0; x < y.size(); ++x) {
        const double off = y[x] - height - slope * (static_cast<double>(x) - middle);
        rest += off * off;
    }
    const boost::math::students_t distribution(count - fitted);
    const double quantile = boost::math::quantile(boost::math::complement(distribution, upperTail));
    return {slope, quantile * std::sqrt(rest / (count - fitted) / spread)};
}

} // namespace soak

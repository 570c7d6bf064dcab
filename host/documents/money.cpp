#include "host/documents/money.h"

#include <cmath>

namespace money {

namespace {
constexpr double kopecksInUnit = 100.0;
// Products such as 1.005 × 100 fall just short of their half in binary.
constexpr double binaryNoise = 1e-6;
} // namespace

bool equal(double left, double right)
{
    return std::abs(left - right) < tolerance;
}

bool counts(double amount)
{
    return amount > tolerance;
}

double roundedToKopecks(double amount)
{
    return std::round(amount * kopecksInUnit + std::copysign(binaryNoise, amount)) / kopecksInUnit;
}

} // namespace money

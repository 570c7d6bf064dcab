#pragma once

#include <cstdint>
#include <random>

namespace simulation {

/// Random numbers that are the same for the same seed with every standard library, whose own
/// distributions differ.
class Chance
{
public:
    explicit Chance(std::uint64_t seed)
        : m_random(seed)
    { }

    /// Evenly from [0, 1).
    [[nodiscard]] double next()
    {
        constexpr int bitsBeyondADouble = 11;
        return static_cast<double>(m_random() >> bitsBeyondADouble) * 0x1p-53;
    }

private:
    std::mt19937_64 m_random;
};

} // namespace simulation

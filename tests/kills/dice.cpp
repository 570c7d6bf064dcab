#include "tests/kills/dice.h"

namespace kills {

namespace {

constexpr quint32 everything = 100; // percent

std::mt19937 generator(quint32 seed, quint32 day)
{
    std::seed_seq sequence{seed, day};
    return std::mt19937(sequence);
}

} // namespace

Dice::Dice(quint32 seed, quint32 day)
    : m_random(generator(seed, day))
{ }

// Not by a distribution of the library: those differ from one to the next.
quint32 Dice::below(quint32 count)
{
    return static_cast<quint32>(m_random()) % count;
}

bool Dice::falls(quint32 percent)
{
    return below(everything) < percent;
}

} // namespace kills

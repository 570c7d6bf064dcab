#include "tests/kills/tally.h"

#include <algorithm>
#include <array>

namespace kills {

namespace {

template <typename Kind> using Counts = std::map<Kind, int>;

template <typename Kind> void addCounts(Counts<Kind> &counts, const Counts<Kind> &others)
{
    for (const auto &[kind, count] : others)
        counts[kind] += count;
}

int sum(const Counts<restart::Manner> &counts)
{
    int sum = 0;
    for (const auto &[manner, count] : counts)
        sum += count;
    return sum;
}

} // namespace

void Tally::add(const Tally &other)
{
    constexpr std::array counts{&Tally::sales, &Tally::returns, &Tally::cancelled,
        &Tally::answersLostActedUpon, &Tally::answersLostNotActedUpon, &Tally::exchanges,
        &Tally::messages, &Tally::attempts, &Tally::parked};
    for (const auto count : counts)
        this->*count += other.*count;
    addCounts(tillsKilled, other.tillsKilled);
    addCounts(waitingForPerson, other.waitingForPerson);
    addCounts(deliverersKilled, other.deliverersKilled);
    tillsLongest = std::max(tillsLongest, other.tillsLongest);
    deliverersLongest = std::max(deliverersLongest, other.deliverersLongest);
}

int Tally::kills() const
{
    return sum(tillsKilled) + sum(deliverersKilled);
}

} // namespace kills

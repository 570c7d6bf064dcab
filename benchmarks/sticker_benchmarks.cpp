// The choice of the most profitable sticker actions: what it takes at large balances, and beside
// the literal table at a small one. Wanted: 50 offers and 10⁹ stickers under 1 ms and 8 MiB, 200
// offers and 10⁵ stickers under 2 ms, 200 offers and 10³ stickers in at most twice the table's
// time.

#include "plugin/stickeractions.h"
#include "plugin/stickerchoice.h"
#include "plugin/stickerorder.h"
#include "plugin/stickerselection.h"
#include "tests/plugin/literaltable.h"

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <new>
#include <random>

namespace {

std::size_t held = 0;
std::size_t mostHeld = 0;

} // namespace

void *operator new(std::size_t size)
{
    void *memory = std::malloc(size);
    if (!memory)
        throw std::bad_alloc();
    held += malloc_usable_size(memory);
    mostHeld = std::max(mostHeld, held);
    return memory;
}

void operator delete(void *memory) noexcept
{
    held -= malloc_usable_size(memory);
    std::free(memory);
}

void operator delete(void *memory, std::size_t) noexcept
{
    operator delete(memory);
}

namespace {

using stickers::Offers;

/// How value and cost of an offer belong together; the closer, the harder the choice.
enum Kind : std::int64_t
{
    Independent,
    Related, ///< the value is that of the cost, give or take a tenth
    BasePlusCost, ///< the value is a fixed sum and that of the cost
    Proportional
};

double valueOf(Kind kind, double part, double chance)
{
    constexpr double dearest = 1000.0;
    switch (kind) {
    case Independent:
        return dearest * chance;
    case Related:
        return dearest * (part + 0.2 * (chance - 0.5));
    case BasePlusCost:
        return dearest * (part + 0.1);
    case Proportional:
        return dearest * part;
    }
    return 0.0;
}

/// Offers that cost about twice the capacity altogether, discounts in whole kopecks.
Offers makeOffers(Kind kind, int count, int capacity)
{
    std::mt19937 engine(1);
    std::uniform_real_distribution<> chances(0.0, 1.0);
    const double dearest = 4.0 * capacity / count;
    Offers offers;
    for (int number = 0; number < count; ++number) {
        const auto cost = static_cast<qint64>(dearest * chances(engine)) + 1;
        const double part = static_cast<double>(cost) / dearest;
        const double kopecks = 100.0 * valueOf(kind, part, chances(engine));
        offers.push_back({cost, std::max(std::round(kopecks), 1.0) / 100.0});
    }
    Offers sorted;
    for (const std::size_t index : stickers::profitOrder(offers))
        sorted.push_back(offers[index]);
    return sorted;
}

Offers makeOffers(const benchmark::State &state)
{
    return makeOffers(
        Kind{state.range(2)}, static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
}

void choose(benchmark::State &state)
{
    const Offers offers = makeOffers(state);
    const auto capacity = static_cast<int>(state.range(1));
    const std::size_t before = held;
    mostHeld = held;
    for (auto _ : state)
        benchmark::DoNotOptimize(stickers::choose(offers, capacity));
    state.counters["KiB"] = static_cast<double>(mostHeld - before) / 1024.0;
    state.counters["isBest"] = stickers::choose(offers, capacity).isBest ? 1.0 : 0.0;
}

void chooseByTable(benchmark::State &state)
{
    const Offers offers = makeOffers(state);
    for (auto _ : state)
        benchmark::DoNotOptimize(chooseByLiteralTable(offers, static_cast<int>(state.range(1))));
}

/// With reading and sorting the actions.
void select(benchmark::State &state)
{
    namespace key = stickeractions::key;
    QList<QVariant> actions;
    for (const auto &offer : makeOffers(state))
        actions.append(QMap<QString, QVariant>{{key::promocoupons, offer.cost}, {key::amount, 1},
            {key::discount, offer.value}, {key::position, QString::number(actions.size())}});
    for (auto _ : state)
        benchmark::DoNotOptimize(
            stickers::selectMostProfitable(actions, static_cast<int>(state.range(1))));
}

void useLargeBalances(benchmark::internal::Benchmark *cases)
{
    for (const Kind kind : {Independent, Related, BasePlusCost, Proportional})
        cases->Args({50, 1'000'000'000, kind})->Args({200, 100'000, kind});
    cases->Unit(benchmark::kMicrosecond);
}

void useSmallBalance(benchmark::internal::Benchmark *cases)
{
    for (const Kind kind : {Independent, Related, BasePlusCost, Proportional})
        cases->Args({200, 1'000, kind});
    cases->Unit(benchmark::kMicrosecond);
}

BENCHMARK(choose)->Apply(useLargeBalances)->Apply(useSmallBalance);
BENCHMARK(chooseByTable)->Apply(useSmallBalance);
BENCHMARK(select)->Apply(useLargeBalances)->Apply(useSmallBalance);

} // namespace

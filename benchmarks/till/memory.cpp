// How much more memory a till holds after thousands of cheques than after the first ones.

#include "benchmarks/till/shop.h"

#include <benchmark/benchmark.h>

namespace {

using namespace Qt::Literals::StringLiterals;

constexpr int positions = 10;
constexpr int firstCheques = 1000;

void sellCheque(Shop &shop)
{
    shop.tell(u"card 2900000000017"_s);
    for (int number = 0; number < positions; ++number)
        shop.tell(u"add 100%1"_s.arg(1 + number % 4));
    shop.tell(u"total"_s);
    shop.tell(u"pay cash"_s);
    shop.tell(u"close"_s);
}

/// In memory, since thousands of cheques would flush the disk for an hour; the till cannot tell.
void sellCheques(benchmark::State &state)
{
    constexpr double bytesPerMebibyte = 1024.0 * 1024.0;
    for (auto _ : state) {
        Shop shop({.disk = u"/dev/shm"_s});
        for (int number = 0; number < firstCheques; ++number)
            sellCheque(shop);
        const qint64 before = shop.tillMemory();
        for (int number = firstCheques; number < state.range(0); ++number)
            sellCheque(shop);
        const qint64 after = shop.tillMemory();
        state.counters["MiB_before"] = static_cast<double>(before) / bytesPerMebibyte;
        state.counters["MiB_more"] = static_cast<double>(after - before) / bytesPerMebibyte;
    }
}

BENCHMARK(sellCheques)
    ->Arg(10'000)
    ->Iterations(1)
    ->Repetitions(1)
    ->Unit(benchmark::kSecond)
    ->UseRealTime();

} // namespace

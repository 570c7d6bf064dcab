// A whole cheque on a long line with TLS: how long the cashier waits, and for how many round trips.

#include "benchmarks/till/shop.h"

#include <QDir>

#include <benchmark/benchmark.h>

#include <algorithm>

namespace {

using namespace Qt::Literals::StringLiterals;

/// A cheque with everything that the service is asked for.
const QStringList &cheque()
{
    static const QStringList commands{u"card 2900000000017"_s, u"add 1001"_s, u"add 1002"_s,
        u"add 1003 0.742"_s, u"add 1004"_s, u"total"_s, u"points 10"_s, u"pay card"_s, u"close"_s};
    return commands;
}

void sellCheque(benchmark::State &state)
{
    constexpr int ways = 2;
    Shop shop({.disk = QDir::tempPath(),
        .tls = true,
        .oneWay = std::chrono::milliseconds(state.range(0)) / ways});
    for (auto _ : state) {
        Shop::Seconds waited{0};
        for (const QString &command : cheque())
            waited += shop.tell(command);
        state.SetIterationTime(waited.count());
    }
    const QList<int> roundTrips = shop.roundTrips();
    const auto cheques = static_cast<double>(state.iterations());
    state.counters["exchanges"] = static_cast<double>(roundTrips.size()) / cheques;
    state.counters["round_trips"] = *std::max_element(roundTrips.cbegin(), roundTrips.cend());
}

/// Milliseconds there and back.
BENCHMARK(sellCheque)
    ->Arg(0)
    ->Arg(60)
    ->Iterations(3)
    ->Repetitions(3)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime();

} // namespace

// What one calculation costs the till apart from waiting for the service: the request composed and
// written, the answer guarded, parsed and read.

#include "benchmarks/client/samples.h"

#include "client/answerguard.h"
#include "client/interface.h"
#include "common/names.h"

#include <QDomDocument>

#include <benchmark/benchmark.h>

namespace {

using namespace samples;

/// As requests are indented.
constexpr int indent = 1;

void calculate(benchmark::State &state)
{
    const korvelLoyaltyOnline::Interface client;
    const auto cheque = chequeOf(positionsOf(state));
    const QByteArray answer = answerOf(positionsOf(state));
    for (auto _ : state) {
        benchmark::DoNotOptimize(
            client.formSaleChequeRequest(cheque, korvel::chequetype::soft, {}).toByteArray(indent));
        benchmark::DoNotOptimize(korvelLoyaltyOnline::findDefect(answer));
        QDomDocument response;
        response.setContent(answer);
        QMap<QString, QVariant> result;
        client.fillRequestResult(response, result);
        benchmark::DoNotOptimize(result);
    }
}

BENCHMARK(calculate)->Arg(10)->Arg(100)->Arg(1000)->Unit(benchmark::kMicrosecond);

} // namespace

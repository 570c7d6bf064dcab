// What the plug-in's client adds to an answer: guarding it, parsing it, reading it into the result
// map. Compare runs only with each other, and within one run by ratio.

#include "benchmarks/client/samples.h"

#include "client/answerguard.h"
#include "client/interface.h"
#include "common/names.h"

#include <QDomDocument>

#include <benchmark/benchmark.h>

namespace {

using namespace samples;

using Values = QMap<QString, QVariant>;

QDomDocument parsedAnswerOf(int positions)
{
    QDomDocument document;
    document.setContent(answerOf(positions));
    return document;
}

void guardAnswer(benchmark::State &state)
{
    const QByteArray answer = answerOf(positionsOf(state));
    for (auto _ : state)
        benchmark::DoNotOptimize(korvelLoyaltyOnline::findDefect(answer));
    state.SetBytesProcessed(state.iterations() * answer.size());
}

void parseAnswer(benchmark::State &state)
{
    const QByteArray answer = answerOf(positionsOf(state));
    for (auto _ : state) {
        QDomDocument document;
        benchmark::DoNotOptimize(document.setContent(answer));
    }
}

void parseAndReadAnswer(benchmark::State &state)
{
    const korvelLoyaltyOnline::Interface client;
    const QByteArray answer = answerOf(positionsOf(state));
    for (auto _ : state) {
        QDomDocument document;
        document.setContent(answer);
        Values result;
        client.fillRequestResult(document, result);
        benchmark::DoNotOptimize(result);
    }
}

void readAnswer(benchmark::State &state)
{
    const korvelLoyaltyOnline::Interface client;
    const QDomDocument document = parsedAnswerOf(positionsOf(state));
    for (auto _ : state) {
        Values result;
        client.fillRequestResult(document, result);
        benchmark::DoNotOptimize(result);
    }
}

void readAnswerAndCoupons(benchmark::State &state)
{
    const korvelLoyaltyOnline::Interface client;
    const QDomDocument document = parsedAnswerOf(positionsOf(state));
    for (auto _ : state) {
        Values result;
        client.fillRequestResult(document, result);
        QList<QVariant> coupons = client.createCouponsToPrint(document);
        benchmark::DoNotOptimize(result);
        benchmark::DoNotOptimize(coupons);
    }
}

/// A map with the keys of another, its values set one by one.
Values rebuilt(const Values &ready)
{
    Values values;
    for (auto entry = ready.cbegin(); entry != ready.cend(); ++entry)
        values.insert(entry.key(), entry.value());
    return values;
}

/// The least that reading can cost: the result map out of values that are there.
void buildMap(benchmark::State &state)
{
    Values ready;
    korvelLoyaltyOnline::Interface().fillRequestResult(parsedAnswerOf(positionsOf(state)), ready);
    const QString &key = korvel::result::positions;
    QList<std::pair<QString, Values>> readyPositions;
    const Values positions = ready.take(key).toMap();
    for (auto position = positions.cbegin(); position != positions.cend(); ++position)
        readyPositions.append({position.key(), position.value().toMap()});
    for (auto _ : state) {
        Values result = rebuilt(ready);
        Values built;
        for (const auto &[number, values] : std::as_const(readyPositions))
            built.insert(number, rebuilt(values));
        result.insert(key, built);
        benchmark::DoNotOptimize(result);
    }
}

void useChequeSizes(benchmark::internal::Benchmark *cases)
{
    cases->Arg(10)->Arg(100)->Arg(1000)->Arg(3000)->Arg(10'000)->Unit(benchmark::kMicrosecond);
}

BENCHMARK(guardAnswer)->Apply(useChequeSizes);
BENCHMARK(parseAnswer)->Apply(useChequeSizes);
BENCHMARK(parseAndReadAnswer)->Apply(useChequeSizes);
BENCHMARK(readAnswer)->Apply(useChequeSizes);
BENCHMARK(readAnswerAndCoupons)->Apply(useChequeSizes);
BENCHMARK(buildMap)->Apply(useChequeSizes);

} // namespace

// The plug-in's own time for the calculation of a cheque: the service answers at once, and flushes
// of the disk are counted instead of done.

#include "benchmarks/client/samples.h"
#include "benchmarks/till/flushes.h"
#include "benchmarks/till/workplace.h"

#include "common/host/services.h"
#include "plugin/korvelloyaltyonline.h"

#include <benchmark/benchmark.h>

namespace {

using namespace Qt::Literals::StringLiterals;
using namespace samples;

/// The service's answer is there as soon as it is asked for.
class AnswerAtHand : public RestClient
{
public:
    explicit AnswerAtHand(const QByteArray &answer) { m_responseBody = answer; }
    void post(const QUrl &, const QByteArray &body, const QHash<QString, QString> &) override
    {
        benchmark::DoNotOptimize(body);
    }
};

void givenAnswer(const QByteArray &answer)
{
    MockFactory<RestClient>::setCreator(
        [answer] { return QSharedPointer<AnswerAtHand>::create(answer); });
}

void calculate(benchmark::State &state)
{
    const Workplace workplace;
    const auto document = chequeOf(positionsOf(state));
    Workplace::open(document);
    givenAnswer(answerOf(positionsOf(state)));
    KorvelLoyaltyOnline plugin;
    flushes::reachDisk(false);
    const long before = flushes::count();
    qint64 number = 0;
    for (auto _ : state) {
        // As the till does it; and another document each time, lest it be on disk already.
        plugin.clearDiscountImpacts();
        document->setChequeText(QString::number(++number));
        if (!plugin.request(document))
            state.SkipWithError("the calculation failed");
    }
    flushes::reachDisk(true);
    state.counters["flushes"] = benchmark::Counter(
        static_cast<double>(flushes::count() - before), benchmark::Counter::kAvgIterations);
    Workplace::open({});
    MockFactory<RestClient>::setCreator({});
}

BENCHMARK(calculate)->Arg(10)->Arg(100)->Arg(1000)->Unit(benchmark::kMicrosecond);

} // namespace

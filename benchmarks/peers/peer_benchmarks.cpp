// The client beside others at the same work: an answer's bytes to the same result map, a cheque to
// a request's bytes. Each begins with the bytes and ends with the map, or the other way round.

#include "benchmarks/client/samples.h"
#include "benchmarks/peers/peers.h"

#include "client/answerguard.h"
#include "client/interface.h"
#include "common/names.h"

#include <QDomDocument>

#include <benchmark/benchmark.h>

namespace {

using namespace samples;

using Values = QMap<QString, QVariant>;

Values readByClient(const QByteArray &answer)
{
    static const korvelLoyaltyOnline::Interface client;
    QDomDocument document;
    document.setContent(answer);
    Values result;
    client.fillRequestResult(document, result);
    return result;
}

/// As an answer is read that comes from outside.
Values readGuardedByClient(const QByteArray &answer)
{
    return korvelLoyaltyOnline::findDefect(answer) ? Values() : readByClient(answer);
}

template <auto readAnswer> void read(benchmark::State &state)
{
    const QByteArray answer = answerOf(positionsOf(state));
    if (readAnswer(answer) != readByClient(answer)) {
        state.SkipWithError("the map is not the client's");
        return;
    }
    for (auto _ : state)
        benchmark::DoNotOptimize(readAnswer(answer));
}

QByteArray composeByClient(const QSharedPointer<AbstractDocument> &document)
{
    constexpr int indent = 1;
    static const korvelLoyaltyOnline::Interface client;
    return client.formSaleChequeRequest(document, korvel::chequetype::soft, {}).toByteArray(indent);
}

QByteArray composeByToolkit(const QSharedPointer<AbstractDocument> &document)
{
    return peers::composeByToolkit(*document);
}

QByteArray composeByParser(const QSharedPointer<AbstractDocument> &document)
{
    return peers::composeByParser(*document);
}

/// Texts of the positions' elements, which do not depend on prefixes, blanks and clock.
QStringList positionTexts(const QByteArray &request)
{
    QDomDocument document;
    document.setContent(request, true);
    QStringList texts;
    const QDomNodeList items = document.elementsByTagName(QStringLiteral("Item"));
    for (int i = 0; i < items.size(); ++i)
        for (QDomElement figure = items.at(i).firstChildElement(); !figure.isNull();
             figure = figure.nextSiblingElement())
            texts.append(figure.tagName() + u'=' + figure.text());
    return texts;
}

template <auto composeRequest> void compose(benchmark::State &state)
{
    const auto document = chequeOf(positionsOf(state));
    if (positionTexts(composeRequest(document)) != positionTexts(composeByClient(document))) {
        state.SkipWithError("the positions are not the client's");
        return;
    }
    for (auto _ : state)
        benchmark::DoNotOptimize(composeRequest(document));
}

void useChequeSizes(benchmark::internal::Benchmark *cases)
{
    cases->Arg(10)->Arg(100)->Arg(1000)->Arg(3000)->Arg(10'000)->Unit(benchmark::kMicrosecond);
}

BENCHMARK(read<readByClient>)->Name("readByClient")->Apply(useChequeSizes);
BENCHMARK(read<readGuardedByClient>)->Name("readGuardedByClient")->Apply(useChequeSizes);
BENCHMARK(read<peers::readByToolkit>)->Name("readByToolkit")->Apply(useChequeSizes);
BENCHMARK(read<peers::readByParser>)->Name("readByParser")->Apply(useChequeSizes);
BENCHMARK(compose<composeByClient>)->Name("composeByClient")->Apply(useChequeSizes);
BENCHMARK(compose<composeByToolkit>)->Name("composeByToolkit")->Apply(useChequeSizes);
BENCHMARK(compose<composeByParser>)->Name("composeByParser")->Apply(useChequeSizes);

} // namespace

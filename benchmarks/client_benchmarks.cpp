// What the plug-in's client adds to an exchange: guarding and reading an answer, composing a
// request. Compare runs only with each other, and within one run by ratio.

#include "client/answerguard.h"
#include "client/interface.h"
#include "common/host/documents.h"
#include "common/host/framework.h"

#include <QByteArray>
#include <QDomDocument>

#include <benchmark/benchmark.h>

namespace {

QByteArray answerOf(int positions)
{
    QByteArray answer = "<soap:Envelope xmlns:soap='http://schemas.xmlsoap.org/soap/envelope/'>"
                        "<soap:Body><ProcessRequestResponse><ProcessRequestResult><ChequeResponse>"
                        "<ReturnCode>0</ReturnCode><Message/><Summ>100.00</Summ>"
                        "<Discount>10.00</Discount><SummDiscounted>90.00</SummDiscounted>";
    for (int number = 1; number <= positions; ++number)
        answer += "<Item><PositionNumber>" + QByteArray::number(number)
            + "</PositionNumber><Summ>100.00</Summ><Discount>10.00</Discount>"
              "<SummDiscounted>90.00</SummDiscounted><ActiveChargedBonus>4.50</ActiveChargedBonus>"
              "<ChargedStatusBonus>0.00</ChargedStatusBonus><WriteoffBonus>0.00</WriteoffBonus>"
              "</Item>";
    return answer
        + "</ChequeResponse></ProcessRequestResult></ProcessRequestResponse></soap:Body>"
          "</soap:Envelope>";
}

QSharedPointer<AbstractDocument> chequeOf(int positions)
{
    const auto group = QSharedPointer<CardGroup>::create();
    group->setCardMode(ECardMode::OnlineLoyalty);
    const auto card = QSharedPointer<Card>::create();
    card->setCardGroup(group);
    auto document
        = QSharedPointer<AbstractDocument>::create(EDocumentType::Sale, QStringLiteral("17"));
    document->addCardRecord(QSharedPointer<DocumentCardRecord>::create(card));
    for (int number = 1; number <= positions; ++number) {
        const auto position = QSharedPointer<GoodsItem>::create();
        position->setPosnum(number);
        position->setPrice(100.0);
        position->setBquant(1.0);
        position->recalculate();
        document->addPosition(position);
    }
    return document;
}

int positionsOf(const benchmark::State &state)
{
    return static_cast<int>(state.range(0));
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

void readAnswer(benchmark::State &state)
{
    const korvelLoyaltyOnline::Interface client;
    QDomDocument document;
    document.setContent(answerOf(positionsOf(state)));
    for (auto _ : state) {
        QMap<QString, QVariant> result;
        client.fillRequestResult(document, result);
        benchmark::DoNotOptimize(result);
    }
}

void composeRequest(benchmark::State &state)
{
    const korvelLoyaltyOnline::Interface client;
    const auto document = chequeOf(positionsOf(state));
    for (auto _ : state)
        benchmark::DoNotOptimize(
            client.formSaleChequeRequest(document, QStringLiteral("Soft"), {}).toByteArray(1));
}

void useChequeSizes(benchmark::internal::Benchmark *cases)
{
    cases->Arg(10)->Arg(100)->Arg(1000)->Unit(benchmark::kMicrosecond);
}

BENCHMARK(guardAnswer)->Apply(useChequeSizes);
BENCHMARK(parseAnswer)->Apply(useChequeSizes);
BENCHMARK(readAnswer)->Apply(useChequeSizes);
BENCHMARK(composeRequest)->Apply(useChequeSizes);

} // namespace

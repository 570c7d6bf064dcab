#include "till/explain/steps.h"

#include "host/framework/event.h"
#include "till/explain/amounts.h"
#include "till/explain/exchangetexts.h"
#include "till/explain/facts.h"
#include "till/explain/messagesteps.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace till::explain {

namespace {

Step openedStep(const Evidence &evidence)
{
    const tr::Tr text = facts::isReturn(evidence)
        ? tr::Tr(u"explainReturnOpened"_s, u"Открыт возврат %1"_s).arg(evidence.number)
        : tr::Tr(u"explainSaleOpened"_s, u"Открыт чек %1"_s).arg(evidence.number);
    if (evidence.document)
        return {evidence.document->getOpened(), Source::Document, u"opened"_s, text, {}};
    return {evidence.journal.isEmpty() ? QDateTime() : evidence.journal.constFirst().time,
        Source::Journal, u"opened"_s, text, {}};
}

std::optional<Step> eventStep(const JournalLine &line)
{
    switch (line.members.value(u"code").toInt()) {
    case EActivityListener::ChequeClosed:
        return Step{line.time, Source::Journal, u"closed"_s,
            {u"explainClosed"_s, u"Документ закрыт и напечатан"_s}, {}};
    case EActivityListener::ChequeCancelled:
        return Step{line.time, Source::Journal, u"cancelled"_s,
            {u"explainCancelled"_s, u"Документ отменён на кассе"_s}, {}};
    case EActivityListener::LoyaltyError:
        return Step{line.time, Source::Journal, u"serviceError"_s,
            tr::Tr(u"explainServiceError"_s, u"Ошибка системы лояльности: %1"_s)
                .arg(line.members.value(u"arguments").toObject().value(u"errorMessage").toString()),
            {}};
    default:
        return std::nullopt;
    }
}

std::optional<Step> journalStep(const JournalLine &line)
{
    if (const auto exchange = facts::exchangeOf(line)) {
        const bool isAgreed = exchange->ending == facts::Ending::Agreed;
        return Step{line.time, Source::Journal, exchangeWord(*exchange), exchangeText(*exchange),
            isAgreed ? amountsOf(exchange->operation, exchange->answer) : Amounts()};
    }
    if (line.kind == u"exception")
        return Step{line.time, Source::Journal, u"shownToCashier"_s,
            tr::Tr(u"explainShownToCashier"_s, u"Кассир прочитал: «%1»"_s)
                .arg(line.members.value(u"text").toString()),
            {}};
    return line.kind == u"event" ? eventStep(line) : std::nullopt;
}

// What the journal does not tell, when it was lost or is older than its lines of exchanges.
QList<Step> documentSteps(const Evidence &evidence)
{
    QList<Step> steps;
    if (!evidence.document || evidence.document->getState() != EDocumentState::Closed)
        return steps;
    const AbstractDocument &document = *evidence.document;
    const auto card = document.getCardRecord(ECardMode::OnlineLoyalty);
    if (card && !card->getOperationId().isEmpty() && !facts::hasExchanges(evidence))
        steps.append({document.getClosed(), Source::Document, u"registerAgreed"_s,
            tr::Tr(u"explainRegisterAgreed"_s,
                u"Система лояльности провела чек под номером операции %1"_s)
                .arg(card->getOperationId()),
            amountsOf(document)});
    if (facts::isOffline(document))
        steps.append({document.getClosed(), Source::Document, u"offline"_s,
            {u"explainOffline"_s, u"Чек закончен без связи с системой лояльности"_s}, {}});
    if (!facts::hasEvent(evidence, EActivityListener::ChequeClosed))
        steps.append({document.getClosed(), Source::Document, u"closed"_s,
            {u"explainClosed"_s, u"Документ закрыт и напечатан"_s}, amountsOf(document)});
    return steps;
}

// What the journal says of exchanges and exceptions, the log says less clearly.
QList<Step> logSteps(const Evidence &evidence)
{
    const QStringList journalled{u"korvelonline"_s, u"till"_s};
    QList<Step> steps;
    for (const LogLine &line : evidence.log)
        if (!isOfMessage(line)
            && !(facts::hasExchanges(evidence) && journalled.contains(line.logger)))
            steps.append({line.time, Source::Log, u"logged"_s,
                tr::Tr(u"explainLogged"_s, u"Журнал программы: %1"_s).arg(line.text), {}});
    return steps;
}

QList<Step> returnSteps(const Evidence &evidence)
{
    QList<Step> steps;
    for (const Evidence &back : evidence.returns) {
        const auto exchange = facts::lastExchange(back, ServiceOperation::Return);
        Amounts amounts = amountsOf(*back.document);
        if (exchange && exchange->ending == facts::Ending::Agreed) {
            const Amounts told = amountsOf(ServiceOperation::Return, exchange->answer);
            amounts.takenBack = told.takenBack;
            amounts.givenBack = told.givenBack;
            amounts.balance = told.balance;
        }
        steps.append({back.document->getClosed(), Source::Document, u"returned"_s,
            tr::Tr(u"explainReturnedBy"_s, u"По чеку закрыт возврат %1"_s).arg(back.number),
            amounts});
    }
    return steps;
}

} // namespace

QList<Step> stepsOf(const Evidence &evidence)
{
    QList<Step> steps{openedStep(evidence)};
    for (const JournalLine &line : evidence.journal)
        if (const auto step = journalStep(line))
            steps.append(*step);
    steps += documentSteps(evidence);
    // What a document knows of its closing often has the very millisecond of the journal's line.
    std::stable_partition(
        steps.begin(), steps.end(), [](const Step &step) { return step.what != u"closed"; });
    steps += messageSteps(evidence);
    steps += logSteps(evidence);
    steps += returnSteps(evidence);
    for (Step &step : steps)
        if (step.what == u"closed" && evidence.document)
            step.amounts = amountsOf(*evidence.document);
    std::stable_sort(steps.begin(), steps.end(),
        [](const Step &left, const Step &right) { return left.time < right.time; });
    return steps;
}

} // namespace till::explain

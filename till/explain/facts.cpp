#include "till/explain/facts.h"

#include "host/framework/event.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace till::explain::facts {

namespace {

// The plug-in's name and its word on a document, as docs/state-folder.md has them.
const QString pluginGroup = u"KorvelLoyaltyOnline"_s;
const QString offlineKey = u"offlineMode"_s;

std::optional<double> amount(const QJsonObject &members, const QString &name)
{
    const QJsonValue value = members.value(name);
    return value.isDouble() ? std::optional(value.toDouble()) : std::nullopt;
}

AnswerFacts answerOf(const QJsonObject &members)
{
    AnswerFacts answer;
    if (members.contains(u"returnCode"_s))
        answer.returnCode = members.value(u"returnCode").toInt();
    answer.message = members.value(u"message").toString();
    answer.transaction = members.value(u"transaction").toString();
    answer.available = amount(members, u"available"_s);
    answer.earned = amount(members, u"earned"_s);
    answer.charged = amount(members, u"charged"_s);
    answer.spent = amount(members, u"spent"_s);
    answer.balance = amount(members, u"balance"_s);
    return answer;
}

// What is no answer of the service's leaves open what it did.
Ending endingOf(int error, const AnswerFacts &answer)
{
    if (error != 0 || !answer.returnCode)
        return Ending::Unanswered;
    return *answer.returnCode <= 0 ? Ending::Agreed : Ending::Refused;
}

} // namespace

std::optional<JournalledExchange> exchangeOf(const JournalLine &line)
{
    if (line.kind != u"exchange")
        return std::nullopt;
    JournalledExchange exchange;
    exchange.time = line.time;
    exchange.operation = operationNamed(line.members.value(u"operation").toString());
    exchange.card = line.members.value(u"card").toString();
    exchange.codeSent = line.members.value(u"codeSent").toBool();
    exchange.answer = answerOf(line.members);
    const int error = line.members.value(u"error").toInt();
    exchange.ending = endingOf(error, exchange.answer);
    exchange.isForeign = error == 0 && !exchange.answer.returnCode;
    exchange.reason = tr::Tr(tr::undefined,
        exchange.ending == Ending::Unanswered ? line.members.value(u"reason").toString()
                                              : exchange.answer.message);
    return exchange;
}

std::optional<JournalledExchange> lastExchange(const Evidence &evidence, ServiceOperation operation)
{
    const auto found = std::find_if(
        evidence.journal.crbegin(), evidence.journal.crend(), [operation](const JournalLine &line) {
            const auto exchange = exchangeOf(line);
            return exchange && exchange->operation == operation;
        });
    return found == evidence.journal.crend() ? std::nullopt : exchangeOf(*found);
}

bool hasExchanges(const Evidence &evidence)
{
    return std::any_of(evidence.journal.cbegin(), evidence.journal.cend(),
        [](const JournalLine &line) { return line.kind == u"exchange"; });
}

bool hasEvent(const Evidence &evidence, int code)
{
    return std::any_of(
        evidence.journal.cbegin(), evidence.journal.cend(), [code](const JournalLine &line) {
            return line.kind == u"event" && line.members.value(u"code").toInt() == code;
        });
}

bool isReturn(const Evidence &evidence)
{
    if (evidence.document)
        return evidence.document->getOperationKind() == EOperationKind::GoodsComeBack;
    return lastExchange(evidence, ServiceOperation::Return).has_value();
}

QString cardOf(const Evidence &evidence)
{
    if (evidence.document)
        return evidence.document->getCardNumber();
    QString card;
    for (const JournalLine &line : evidence.journal)
        if (const auto exchange = exchangeOf(line);
            exchange && exchange->ending == Ending::Agreed && !exchange->card.isEmpty())
            card = exchange->card;
    return card;
}

bool isOffline(const AbstractDocument &document)
{
    return document.getStoredValue(pluginGroup, offlineKey, false).toBool();
}

} // namespace till::explain::facts

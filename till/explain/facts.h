#pragma once

#include "till/explain/evidence.h"
#include "till/wire/exchangefacts.h"

#include <optional>

/// What the steps and the conclusion of a story both ask of the evidence.
namespace till::explain::facts {

/// How an exchange ended.
enum class Ending
{
    Agreed, ///< the service did as it was asked
    Refused, ///< it answered, and did not
    Unanswered, ///< nobody knows whether it did
};

/// An exchange as its journal line has it.
struct JournalledExchange
{
    QDateTime time;
    ServiceOperation operation = ServiceOperation::Unknown;
    Ending ending = Ending::Unanswered;
    QString card;
    tr::Tr reason; ///< what the service or the connection said; may be empty
    bool codeSent = false;
    bool isForeign = false; ///< something answered, but not the service
    AnswerFacts answer;
};

/// Nothing where the line is of another kind.
[[nodiscard]] std::optional<JournalledExchange> exchangeOf(const JournalLine &line);
/// The last exchange of that operation.
[[nodiscard]] std::optional<JournalledExchange> lastExchange(
    const Evidence &evidence, ServiceOperation operation);
[[nodiscard]] bool hasExchanges(const Evidence &evidence);

[[nodiscard]] bool hasEvent(const Evidence &evidence, int code);
[[nodiscard]] bool isReturn(const Evidence &evidence);
/// The card of the document; where no document is kept, the one that was asked about last.
[[nodiscard]] QString cardOf(const Evidence &evidence);
/// Whether the plug-in has noted on the document that it goes on without the service.
[[nodiscard]] bool isOffline(const AbstractDocument &document);

} // namespace till::explain::facts

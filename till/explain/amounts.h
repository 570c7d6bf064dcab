#pragma once

#include "till/explain/story.h"
#include "till/wire/exchangefacts.h"

namespace till::explain {

/// What an answer to that operation says: a return's points go the other way than a sale's.
[[nodiscard]] Amounts amountsOf(ServiceOperation operation, const AnswerFacts &answer);
/// What the document itself says of its sale or return.
[[nodiscard]] Amounts amountsOf(const AbstractDocument &document);

} // namespace till::explain

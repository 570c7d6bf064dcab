#pragma once

#include "till/explain/facts.h"

namespace till::explain {

/// What an exchange was about and how it ended, in one sentence.
[[nodiscard]] tr::Tr exchangeText(const facts::JournalledExchange &exchange);
/// The same in one word for programs: the operation's name and "Agreed", "Refused" or "Unanswered".
[[nodiscard]] QString exchangeWord(const facts::JournalledExchange &exchange);

} // namespace till::explain

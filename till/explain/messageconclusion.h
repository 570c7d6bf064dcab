#pragma once

#include "till/explain/story.h"

namespace till::explain {

/// Where the points of a queued document are: by its last message that belongs here.
/// @param evidence has at least one message.
[[nodiscard]] Conclusion concludeByMessage(const Evidence &evidence);

} // namespace till::explain

#pragma once

#include "till/explain/story.h"

namespace till::explain {

/// What became of a document's messages in the outgoing queue: by their rows, and by the log of the
/// attempts before the last one.
[[nodiscard]] QList<Step> messageSteps(const Evidence &evidence);

/// Whether a line of the log tells of an attempt to deliver a message.
[[nodiscard]] bool isOfMessage(const LogLine &line);

} // namespace till::explain

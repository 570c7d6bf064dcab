#pragma once

#include "host/queue/queuemessage.h"
#include "till/transcript/json.h"

namespace till {

/// A message as an entry of `list --json`. Times are in UTC, null where there is none: a message
/// that is not to be sent has no next attempt.
[[nodiscard]] Json listedMessage(const QueueMessage &message);

/// A message with everything that is kept of it, as of `show --json`.
[[nodiscard]] Json wholeMessage(const QueueMessage &message);

} // namespace till

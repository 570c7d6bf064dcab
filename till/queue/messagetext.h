#pragma once

#include "host/queue/queuemessage.h"

namespace till {

/// A message for people: a line for each of its values that there are, then body and answer. What a
/// service answers cannot work the terminal.
[[nodiscard]] QString messageText(const QueueMessage &message);

/// Local time to the second; empty for an invalid one.
[[nodiscard]] QString timeText(const QDateTime &time);

/// What stands with a message as the reason for its state.
[[nodiscard]] QString reasonText(const QueueMessage &message);

} // namespace till

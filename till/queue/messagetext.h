#pragma once

#include "host/queue/queuemessage.h"

namespace till {

/// A message for people: a line for each of its values that there are, then body and answer.
[[nodiscard]] QString messageText(const QueueMessage &message);

/// The text with a mark in place of each control character but line breaks and tabulators, so that
/// what a service answers cannot work the terminal.
[[nodiscard]] QString printable(const QString &text);

/// Local time to the second; empty for an invalid one.
[[nodiscard]] QString timeText(const QDateTime &time);

/// What stands with a message as the reason for its state.
[[nodiscard]] QString reasonText(const QueueMessage &message);

} // namespace till

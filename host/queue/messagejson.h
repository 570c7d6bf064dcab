#pragma once

#include "host/export.h"
#include "host/queue/queuemessage.h"

#include <QByteArray>

#include <optional>

/// A message as a line of JSON with a checksum, for files beside and between queues.
namespace messagejson {

/// One line, its end included.
[[nodiscard]] POSHOST_EXPORT QByteArray line(const QueueMessage &message);
/// The message of a line, without a number; nothing when the line is not whole or not as it was
/// written.
[[nodiscard]] POSHOST_EXPORT std::optional<QueueMessage> read(const QByteArray &line);

} // namespace messagejson

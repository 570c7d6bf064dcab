#pragma once

#include "host/queue/queuelook.h"
#include "till/transcript/json.h"

namespace till::support {

/// The figures of a queue as `korvel-till queue status --json` has them.
/// @throws StorageError when the queue cannot be read.
[[nodiscard]] Json queueFigures(QueueLook &queue);

} // namespace till::support

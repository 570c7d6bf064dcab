#pragma once

#include "till/queue/queueoptions.h"

/// The command of `korvel-till queue` that sends what waits; see `watch.h` for the service.
namespace till::queuecommands {

/// `deliver`: sends everything that waits once, whether it is due or not. On a terminal it shows
/// how far it has come. A signal ends it behind the message in hand.
/// @return 0 when all of it was delivered, otherwise 1; what cannot be used is thrown as
///         `openQueue` does.
int deliver(const QueueOptions &options);

} // namespace till::queuecommands

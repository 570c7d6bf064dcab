#pragma once

#include "host/queue/queuedatabase.h"

/// The tables of a shared queue: those of the queue's file, and what lets many work them at once.
namespace serverlayout {

/// Makes what is missing in one transaction, one program at a time; tables of this layout are only
/// read.
/// @throws QueueUnreached when only a newer program can work the tables; nothing has changed then.
void bringUp(QueueDatabase &database);

} // namespace serverlayout

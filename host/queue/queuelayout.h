#pragma once

#include "host/queue/queuedatabase.h"

/// The tables of the queue's file and their changes over time.
///
/// A change only adds, so that the program of before can still work the file: "user_version" is the
/// oldest layout whose program can, and the fact "layout" is the one that the file has.
namespace queuelayout {

/// Makes what is missing in one transaction; a file of this layout is only read.
/// @throws StorageError when only a newer program can work the file; nothing has changed then.
void bringUp(QueueDatabase &database);

} // namespace queuelayout

#pragma once

#include "host/queue/queuedatabase.h"

/// Reading what can be read of a damaged file of the queue.
///
/// Page by page, without the file's head, its directory or its inner pages: each row of the table
/// of messages that is there whole is found, wherever it stands. (The database's own program for
/// this needs a module that the system's build of it has not.)
namespace salvage {

struct Result
{
    int taken = 0; ///< messages that were put into the queue
    int broken = 0; ///< messages that are seen to have been there but are not whole
};

/// Puts the messages that can be read, the write-ahead log included, behind those of the queue in
/// the order of their numbers; one whose id is there already is passed over. One that was being
/// sent waits again. The damaged file is only read.
/// @throws StorageError when the queue cannot be written; it is then unchanged.
Result into(QueueDatabase &queue, const QString &damagedFile);

} // namespace salvage

#pragma once

#include "host/queue/dbqueuebroker.h"
#include "till/queue/queueoptions.h"

namespace till {

/// Log folder of the commands that end by themselves.
inline const QString oneTimeLogFolder = QStringLiteral("queue");

/// Opens the till's outgoing queue beside the till, which may be running: reads the settings and
/// directs the log to a folder of its own below that of the till's. What the opening found is told
/// on standard error.
///
/// Only the user whose state folder it is may do so: files that another user, the administrator
/// for instance, made in it would shut the till out of its queue.
/// @param logFolder name of the folder of the log.
/// @return owned by `Singleton`.
/// @throws ConfigError, StorageError or std::runtime_error when something of it cannot be used.
[[nodiscard]] DBQueueBroker &openQueue(const QueueOptions &options, const QString &logFolder);

} // namespace till

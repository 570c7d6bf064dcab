#pragma once

#include "host/export.h"
#include "host/framework/tr.h"
#include "host/queue/queuedatabase.h"

#include <QString>

/// Whether the queue's file is sound.
namespace queuecheck {

/// Files up to this size are read through at every opening; larger ones after an end that left a
/// write-ahead log behind, and when the last time was a day ago.
inline constexpr qint64 bytesAlwaysReadThrough = qint64{64} * 1024 * 1024;
inline constexpr int hoursBetweenReadings = 24;

struct Finding
{
    tr::Tr damage; ///< what is wrong, for people; empty when nothing is, or when there is no file
    bool readThrough = false; ///< the whole file was read
};

/// Looks at the file and what belongs to it, which nobody else has open, without changing any of
/// it. Every opening sees whether it is a database of the length that it claims; whether it is read
/// through depends on its size.
/// @throws StorageError when it cannot be read for another reason.
[[nodiscard]] POSHOST_EXPORT Finding lookAt(const QString &fileName);

/// Remembers in the file that it was read through just now; in a small one once in
/// `hoursBetweenReadings`.
POSHOST_EXPORT void rememberReading(QueueDatabase &database);

} // namespace queuecheck

#pragma once

#include <QString>

/// Making the queue's file.
namespace newqueuefile {

/// Makes the file beside its place, private, with its tables, and renames it there: what stands
/// under the name has been a whole queue from its first moment on.
/// @throws StorageError when it cannot be made.
void make(const QString &fileName);

} // namespace newqueuefile

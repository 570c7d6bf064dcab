#pragma once

#include "host/export.h"

#include <QByteArray>
#include <QString>

/// Replacing whole files so that a power cut leaves the old contents or the new ones, never a mix.
namespace atomicfile {

/// Writes a new file beside the old one, syncs it, renames it over the old one and syncs the
/// folder. The file is readable by its owner only.
/// @param fileName in a folder that exists.
/// @throws StorageError on any failure; the old file is then as it was and nothing is left beside
///         it. Only when the very last step failed, the sync of the folder, the new contents are
///         there already but might not outlast a power cut.
POSHOST_EXPORT void write(const QString &fileName, const QByteArray &contents);

/// Gives a file another name and syncs the folder. A file that has that name is replaced.
/// @throws StorageError on any failure; only when the folder's sync failed, the file has its new
///         name already.
POSHOST_EXPORT void move(const QString &from, const QString &to);

/// Makes a folder, and those above it where they are missing, for its owner only. They are on disk,
/// synced, when this returns. One that is there stays as it is.
/// @throws StorageError when it cannot be made.
POSHOST_EXPORT void makePrivateFolder(const QString &folder);

/// Removes a file and syncs its folder; a file that is not there is no error.
/// @throws StorageError when it cannot be removed.
POSHOST_EXPORT void remove(const QString &fileName);

/// The same without a sync: a power cut soon after may bring the file back. For one whose return
/// does no harm.
POSHOST_EXPORT void removeUnsynced(const QString &fileName);

} // namespace atomicfile

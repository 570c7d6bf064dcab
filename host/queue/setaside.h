#pragma once

#include <QString>
#include <QStringList>

/// Damaged files of the queue under names of their own beside it.
namespace setaside {

/// Renames the file with its write-ahead log and the index of that to
/// "<file>.damaged-<time>", a name that was free. A log whose file is gone gets an empty one.
/// @return that name.
/// @throws StorageError when it cannot be renamed.
QString move(const QString &fileName);

/// Names of those whose messages were not taken over yet, oldest first.
[[nodiscard]] QStringList notYetSalvaged(const QString &fileName);
/// Remembers on disk, in "<aside>.salvaged", that its messages were taken over, and how many.
/// @throws StorageError when that cannot be written.
void markSalvaged(const QString &aside, int messages);

} // namespace setaside

#pragma once

#include <QString>

#include <optional>

/// Remembers the highest number that was given to a document, so that none is given twice.
namespace numberkeeper {

/// The number kept in that file; nothing when there is no such file.
/// @throws StorageError when the file cannot be read or understood.
[[nodiscard]] std::optional<qint64> highest(const QString &fileName);

/// Keeps the number; it is on disk when this returns.
/// @throws StorageError when it cannot be kept.
void keep(const QString &fileName, qint64 number);

} // namespace numberkeeper

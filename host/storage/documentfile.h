#pragma once

#include "host/documents/abstractdocument.h"

#include <QSharedPointer>
#include <QString>

/// One document, one file.
namespace documentfile {

/// Replaces the file in one step, synced. Where this process has just written the same, nothing is
/// left to do. On the host's thread.
/// @throws StorageError when it cannot be written; the old file is then untouched.
void save(AbstractDocument &document, const QString &fileName);

/// Null when there is no such file.
/// @throws StorageError when it is there but cannot be read.
[[nodiscard]] QSharedPointer<AbstractDocument> load(const QString &fileName);

/// Whether two objects are the same document: one number, opened at one occasion.
[[nodiscard]] bool isSame(const AbstractDocument &left, const AbstractDocument &right);

} // namespace documentfile

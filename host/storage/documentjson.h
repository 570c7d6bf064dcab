#pragma once

#include "host/documents/abstractdocument.h"
#include "host/export.h"

#include <QByteArray>
#include <QSharedPointer>
#include <QString>

/// Documents as files: everything that a document holds, so that a till that was killed goes on
/// where it was. The format is described in docs/state-folder.md.
namespace documentjson {

/// A closed document is written without the verification code that a plug-in keeps on it.
/// @throws StorageError when a stored value is of a kind that the format does not know.
[[nodiscard]] POSHOST_EXPORT QByteArray write(AbstractDocument &document);

/// @param contents what `write` gave.
/// @param fileName only stands in messages.
/// @throws StorageError when the contents are damaged or of an unknown format; the message names
///         the file, the place in it and what to do.
[[nodiscard]] POSHOST_EXPORT QSharedPointer<AbstractDocument> read(
    const QByteArray &contents, const QString &fileName);

} // namespace documentjson

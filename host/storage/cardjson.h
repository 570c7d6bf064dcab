#pragma once

#include "host/documents/documentcardrecord.h"
#include "host/storage/jsonfield.h"
#include "host/storage/jsonwriter.h"

#include <QSharedPointer>

/// The card records of a document as JSON, with card, group and client.
namespace cardjson {

/// @throws StorageError when a value is of a type that the format does not know.
void write(JsonWriter &json, const DocumentCardRecord &record);
/// @throws StorageError when something is missing or not as it should be.
[[nodiscard]] QSharedPointer<DocumentCardRecord> read(const JsonField &field);

} // namespace cardjson

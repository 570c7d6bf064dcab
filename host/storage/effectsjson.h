#pragma once

#include "host/documents/abstractdocument.h"
#include "host/storage/jsonfield.h"
#include "host/storage/jsonwriter.h"

/// What a loyalty system granted a document, as JSON.
namespace effectsjson {

using CardRecords = QList<QSharedPointer<DocumentCardRecord>>;

/// @param cards the document's card records: an impact names one of them by its place there; a
///              record that is not among them is written out.
/// @throws StorageError when a value is of a type that the format does not know.
void write(JsonWriter &json, const LoyaltyEffects &effects, const CardRecords &cards);
/// @throws StorageError when something is missing or not as it should be.
[[nodiscard]] LoyaltyEffects read(const JsonField &field, const CardRecords &cards);

} // namespace effectsjson

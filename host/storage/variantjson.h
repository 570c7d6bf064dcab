#pragma once

#include "host/storage/jsonfield.h"
#include "host/storage/jsonwriter.h"

#include <QJsonValue>
#include <QVariant>

#include <optional>

/// Variants as JSON so that they come back with value and type.
///
/// A text, a boolean, a list and an invalid variant are JSON's own; everything else is an object
/// with one member that names the kind: {"int": 5}, {"double": 1.5}, {"date": "2024-02-29"}.
namespace variantjson {

/// @throws StorageError for a type that has no kind; the text names it.
void write(JsonWriter &json, const QVariant &value);
[[nodiscard]] QVariant toVariant(const JsonField &field);

/// A number as `JsonWriter::value` writes it; nothing when the value is none.
[[nodiscard]] std::optional<double> toDouble(const QJsonValue &value);

} // namespace variantjson

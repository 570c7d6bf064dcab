#pragma once

#include "host/storage/jsonfield.h"

#include <QJsonValue>
#include <QVariant>

#include <optional>

/// Variants as JSON so that they come back with value and type.
///
/// A text, a boolean, a list and an invalid variant are JSON's own; everything else is an object
/// with one member that names the kind: {"int": 5}, {"double": 1.5}, {"date": "2024-02-29"}.
namespace variantjson {

/// @throws StorageError for a type that has no kind; the text names it.
[[nodiscard]] QJsonValue fromVariant(const QVariant &value);
[[nodiscard]] QVariant toVariant(const JsonField &field);

/// A JSON number where one comes back as the very same bits, otherwise (infinities, "not a number",
/// minus zero) a text of its bits: "0x7ff0000000000000".
[[nodiscard]] QJsonValue fromDouble(double number);
/// Nothing when the value is no such number.
[[nodiscard]] std::optional<double> toDouble(const QJsonValue &value);

/// ISO 8601 with milliseconds; null for an invalid one. Local times stay local ones.
[[nodiscard]] QJsonValue fromTime(const QDateTime &time);

} // namespace variantjson

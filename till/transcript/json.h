#pragma once

#include <QString>
#include <QVariant>

#include <nlohmann/json.hpp>

namespace till {

/// Members keep the order in which they are written: people read the transcript.
using Json = nlohmann::ordered_json;

/// The text in UTF-8.
[[nodiscard]] std::string toJson(const QString &text);
/// A value in its natural form: maps are objects, lists arrays, dates ISO texts, messages their
/// Russian text. What is not there (an invalid value or date, a number that is not finite) is null.
[[nodiscard]] Json toJson(const QVariant &value);
/// An amount or balance: a number also where a text is stored; null where there is none.
[[nodiscard]] Json amountToJson(const QVariant &value);
[[nodiscard]] Json dateTimeToJson(const QDateTime &dateTime);

} // namespace till

#pragma once

#include "host/export.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QStringView>

#include <optional>

/// What the texts of a configuration mean: plain functions, no value where the text is malformed.
namespace config {

/// Text in UTF-8; a byte order mark is left out.
[[nodiscard]] POSHOST_EXPORT std::optional<QString> decoded(const QByteArray &bytes);
/// A decimal integer of 32 bits.
[[nodiscard]] POSHOST_EXPORT std::optional<int> integer(const QString &text);
/// A finite decimal number with a point.
[[nodiscard]] POSHOST_EXPORT std::optional<double> number(const QString &text);
/// "true", "yes", "on", "1" or "false", "no", "off", "0", in any case.
[[nodiscard]] POSHOST_EXPORT std::optional<bool> boolean(const QString &text);
/// Split at commas, trimmed, empty items dropped.
[[nodiscard]] POSHOST_EXPORT QStringList items(const QString &text);
/// Whether the whole text is such as the pattern says: "*" stands for any text, "?" for any
/// character, nothing else is special. Compiling a regular expression for it would take longer than
/// composing a small request.
[[nodiscard]] POSHOST_EXPORT bool matchesWildcard(QStringView text, QStringView pattern);

} // namespace config

#pragma once

#include "host/export.h"

#include <QByteArray>
#include <QString>

/// Texts from outside (the service's, scanned ones, those of settings) on their way to people and
/// their tools, where some characters are commands: to a terminal, to a receipt printer, to what
/// cuts a file into lines, or to what puts text into its reading order.
namespace plaintext {

/// The text for a terminal, a printer or a file of several lines. Line breaks of every kind become
/// "\n" and tabulators stay; each other control character, and each character that turns the
/// reading order of those behind it, becomes U+FFFD.
[[nodiscard]] POSHOST_EXPORT QString block(const QString &text);

/// The same in one line: each line break and tabulator becomes a blank.
[[nodiscard]] POSHOST_EXPORT QString line(const QString &text);

/// JSON that says the same, with all these characters inside its strings written as "\u…". Line
/// breaks "\n" and tabulators, which a string cannot hold, stay.
/// @param json in UTF-8.
[[nodiscard]] POSHOST_EXPORT QByteArray json(const QByteArray &json);

} // namespace plaintext

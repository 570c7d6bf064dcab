#pragma once

#include <QStringList>
#include <QStringView>

namespace till {

/// Splits a command line into words as a shell does: at blanks, with 'literal' and "quoted" parts;
/// a backslash keeps the next character, in double quotes only `"`, `\`, `$` and the backquote. A
/// word that starts with `#` begins a comment.
/// @throws CannotDo when a quote is not closed or the line ends in a backslash.
[[nodiscard]] QStringList splitWords(QStringView line);

} // namespace till

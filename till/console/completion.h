#pragma once

#include <QString>
#include <QStringList>

namespace till {

/// What the word at the end of a line can become: a command's name at its beginning, an article's
/// code behind `add` and `input`; nothing elsewhere.
/// @param before   the line in front of the word.
/// @param word     what is typed of it.
/// @param articles codes of the catalogue.
[[nodiscard]] QStringList completions(
    const QString &before, const QString &word, const QStringList &articles);

} // namespace till

#pragma once

#include "host/export.h"

#include <QString>
#include <QStringList>

/// Texts in the columns of a receipt. One character is one column.
namespace columns {

/// Words in as few lines as they need; a word that is longer than a line is broken.
[[nodiscard]] POSHOST_EXPORT QStringList wrapped(const QString &text, int width);
/// A text on the left, a figure on the right. Where they do not fit beside each other the figure
/// stands on a line of its own.
[[nodiscard]] POSHOST_EXPORT QString spread(const QString &left, const QString &right, int width);
[[nodiscard]] POSHOST_EXPORT QString centred(const QString &text, int width);

} // namespace columns

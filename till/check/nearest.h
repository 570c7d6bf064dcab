#pragma once

#include <QString>
#include <QStringList>

namespace till::check {

/// How many letters must be put in, taken out, replaced or swapped with their neighbour to make one
/// word of another; upper and lower case are the same.
[[nodiscard]] int distance(const QString &left, const QString &right);

/// The word that was most likely meant: the nearest one, if it is near enough for a slip of the
/// hand; empty where none is.
[[nodiscard]] QString nearest(const QString &written, const QStringList &known);

} // namespace till::check

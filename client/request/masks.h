#pragma once

#include <QList>
#include <QObject>
#include <QString>

namespace korvelLoyaltyOnline {

/// The mask filled from the objects' properties, by a formatter of its own. Nothing is cached.
[[nodiscard]] QString expandMask(const QString &mask, const QList<QObject *> &objects);

} // namespace korvelLoyaltyOnline

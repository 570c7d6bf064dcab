#pragma once

#include <QMap>
#include <QSet>
#include <QString>
#include <QVariant>

/// Sticker actions are offers that come as attributes of the answer's positions; the marker in the
/// attribute's name tells them apart.
namespace stickeractions {

/// The positions without the sticker actions of those named; an empty set stands for all of them,
/// which is what declining the exchange relies on. Other attributes stay.
[[nodiscard]] QMap<QString, QVariant> removed(
    const QMap<QString, QVariant> &positions, const QSet<QString> &from, const QString &marker);

} // namespace stickeractions

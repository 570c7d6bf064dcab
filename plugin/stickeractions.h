#pragma once

#include <QList>
#include <QMap>
#include <QSet>
#include <QString>
#include <QVariant>

/// Sticker actions are offers that come as attributes of the answer's positions; the marker in the
/// attribute's name tells them apart.
namespace stickeractions {

/// Keys of an action.
namespace key {
inline const QString activeBalance = QStringLiteral("activebalance"); ///< the customer's stickers
inline const QString promocoupons = QStringLiteral("promocoupons"); ///< stickers for one unit
inline const QString amount = QStringLiteral("amount"); ///< units
inline const QString discount = QStringLiteral("discount"); ///< money for one unit
inline const QString position = QStringLiteral("position"); ///< added here: who carries the action
} // namespace key

/// What the actions cost altogether, and what there is to pay for them.
struct Demand
{
    double needed = 0.0; ///< stickers
    double balance = 0.0; ///< stickers; every action tells it, the first that is not 0 counts
};

/// Whether any position carries a sticker action.
[[nodiscard]] bool exist(const QMap<QString, QVariant> &positions, const QString &marker);

/// All sticker actions as maps, in the order of positions and of their attributes. What cannot be
/// read as a JSON object gives an action that costs and brings nothing.
[[nodiscard]] QList<QVariant> found(
    const QMap<QString, QVariant> &positions, const QString &marker);

/// The key of the position that carries the action.
[[nodiscard]] QString positionOf(const QVariant &action);

[[nodiscard]] Demand demandOf(const QList<QVariant> &actions);

/// The positions without the sticker actions of those named; an empty set stands for all of them,
/// which is what declining the exchange relies on. Other attributes stay.
[[nodiscard]] QMap<QString, QVariant> removed(
    const QMap<QString, QVariant> &positions, const QSet<QString> &from, const QString &marker);

} // namespace stickeractions

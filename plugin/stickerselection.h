#pragma once

#include <QList>
#include <QSet>
#include <QString>
#include <QVariant>

namespace stickers {

struct Selection
{
    QSet<QString> positionsToRemove; ///< of the actions that were not chosen
    /// False: there was too much to choose from, and the actions were taken in their order.
    bool isBest = true;
};

/// Stickers that can be spent: the balance without its fraction; 0 for one that is negative or not
/// finite, the largest integer for one that exceeds it.
[[nodiscard]] int spendable(double balance);

/// Chooses the actions with the greatest total discount that the stickers pay for.
/// @param actions maps as `stickeractions::found` gives them; sorted by profit on return.
/// @param capacity stickers to spend; 0 or less chooses nothing.
[[nodiscard]] Selection selectMostProfitable(QList<QVariant> &actions, int capacity);

} // namespace stickers

#include "plugin/stickerselection.h"

#include "plugin/stickeractions.h"
#include "plugin/stickerchoice.h"
#include "plugin/stickerorder.h"

#include <cmath>
#include <limits>

namespace stickers {

namespace {

namespace key = stickeractions::key;

Offer offerOf(const QVariant &action)
{
    const auto map = action.toMap();
    const int units = map.value(key::amount).toInt();
    return {qint64{map.value(key::promocoupons).toInt()} * units,
        map.value(key::discount).toDouble() * units};
}

Offers offersOf(const QList<QVariant> &actions)
{
    Offers offers;
    offers.reserve(static_cast<std::size_t>(actions.size()));
    for (const QVariant &action : actions)
        offers.push_back(offerOf(action));
    return offers;
}

/// Sorts the actions by profit and gives their offers in the same order.
Offers sortByProfit(QList<QVariant> &actions)
{
    const Offers offers = offersOf(actions);
    Offers sortedOffers;
    QList<QVariant> sortedActions;
    for (const std::size_t index : profitOrder(offers)) {
        sortedOffers.push_back(offers[index]);
        sortedActions.append(actions[static_cast<qsizetype>(index)]);
    }
    actions.swap(sortedActions);
    return sortedOffers;
}

} // namespace

int spendable(double balance)
{
    constexpr int most = std::numeric_limits<int>::max();
    if (!std::isfinite(balance) || balance < 0.0)
        return 0;
    return balance >= most ? most : static_cast<int>(balance);
}

Selection selectMostProfitable(QList<QVariant> &actions, int capacity)
{
    const Offers offers = sortByProfit(actions);
    const Choice choice = choose(offers, capacity);
    Selection selection{{}, choice.isBest};
    for (std::size_t index = 0; index < offers.size(); ++index)
        if (!choice.chosen[index])
            selection.positionsToRemove.insert(
                stickeractions::positionOf(actions[static_cast<qsizetype>(index)]));
    return selection;
}

} // namespace stickers

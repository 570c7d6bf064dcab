#include "emulator/rules/discounts.h"

#include "emulator/rules/thresholds.h"

#include <algorithm>

namespace emulator {

namespace {

void takeOff(CalculatedPosition &position, Amount amount)
{
    position.sumDiscounted -= std::min(amount, position.room());
}

void applyArticleDiscount(CalculatedPosition &position, const Reduction &reduction)
{
    if (const Percent *percent = std::get_if<Percent>(&reduction)) {
        takeOff(position, percent->of(position.sumDiscounted));
        return;
    }
    const auto amount = product(std::get<Amount>(reduction), position.quantity);
    takeOff(position, amount.value_or(position.sum));
}

void applyArticleDiscounts(Positions &positions, const std::vector<ArticleDiscount> &discounts)
{
    for (CalculatedPosition &position : positions) {
        for (const ArticleDiscount &discount : discounts) {
            if (discount.article == position.article)
                applyArticleDiscount(position, discount.reduction);
        }
    }
}

void takeOffAll(Positions &positions, Amount amount)
{
    std::vector<Amount> rooms;
    for (const CalculatedPosition &position : positions)
        rooms.push_back(position.room());
    const std::vector<Amount> shares = apportion(amount, rooms);
    for (std::size_t index = 0; index < positions.size(); ++index)
        takeOff(positions[index], shares[index]);
}

void applyToAll(Positions &positions, const Reduction &reduction)
{
    if (const Amount *amount = std::get_if<Amount>(&reduction)) {
        takeOffAll(positions, *amount);
        return;
    }
    for (CalculatedPosition &position : positions)
        takeOff(position, std::get<Percent>(reduction).of(position.sumDiscounted));
}

} // namespace

void applyDiscounts(
    Positions &positions, const ServiceData &data, const std::vector<Reduction> &coupons)
{
    applyArticleDiscounts(positions, data.articleDiscounts);
    const Amount sum = Calculation{positions, {}}.sumDiscounted();
    if (const ChequeDiscount *discount = highestReached(data.chequeDiscounts, sum))
        applyToAll(positions, discount->reduction);
    for (const Reduction &coupon : coupons)
        applyToAll(positions, coupon);
}

} // namespace emulator

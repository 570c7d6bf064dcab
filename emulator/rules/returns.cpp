#include "emulator/rules/returns.h"

#include <algorithm>

namespace emulator {

namespace {

/// What is due of `whole` once `quantity` more has come back, less what was due before.
Amount due(Amount whole, Amount before, const SoldPosition &sold, Quantity quantity)
{
    const Amount together = proportion(whole, sold.returned + quantity, sold.quantity);
    // An earlier part that was rolled back can leave a rounding of one hundredth too much.
    return std::max(Amount(), together - before);
}

Amount dueStickers(const SoldPosition &sold, Quantity quantity)
{
    const Amount together
        = proportionInUnits(sold.stickers, sold.returned + quantity, sold.quantity);
    return std::max(Amount(), together - sold.stickersReturned);
}

ReturnedPart takePart(SoldPosition &sold, int number, Quantity quantity)
{
    ReturnedPart part;
    part.number = number;
    part.salePosition = sold.number;
    part.quantity = quantity;
    part.sum = proportion(sold.sum, quantity, sold.quantity);
    part.sumDiscounted = proportion(sold.sumDiscounted, quantity, sold.quantity);
    part.takeBack = due(sold.earned, sold.earnedReturned, sold, quantity);
    part.takeBackStatus = due(sold.earnedStatus, sold.statusReturned, sold, quantity);
    part.giveBack = due(sold.spent, sold.spentReturned, sold, quantity);
    part.giveBackStickers = dueStickers(sold, quantity);

    sold.returned += quantity;
    sold.earnedReturned += part.takeBack;
    sold.statusReturned += part.takeBackStatus;
    sold.spentReturned += part.giveBack;
    sold.stickersReturned += part.giveBackStickers;
    return part;
}

} // namespace

std::optional<std::vector<ReturnedPart>> planReturn(
    std::vector<SoldPosition> sold, const std::vector<RequestPosition> &returned)
{
    std::vector<ReturnedPart> parts;
    for (const RequestPosition &position : returned) {
        Quantity left = position.quantity;
        const auto takeFrom = [&](SoldPosition &candidate) {
            const Quantity quantity = std::min(left, candidate.quantity - candidate.returned);
            if (candidate.article != position.article || quantity <= Quantity())
                return;
            parts.push_back(takePart(candidate, position.number, quantity));
            left -= quantity;
        };
        for (SoldPosition &candidate : sold) {
            if (candidate.number == position.number)
                takeFrom(candidate);
        }
        for (SoldPosition &candidate : sold)
            takeFrom(candidate);
        if (left > Quantity())
            return {};
    }
    return parts;
}

} // namespace emulator

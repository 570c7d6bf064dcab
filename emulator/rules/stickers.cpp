#include "emulator/rules/stickers.h"

#include <algorithm>

namespace emulator {

namespace {

const StickerOffer *offerFor(
    const CalculatedPosition &position, const std::vector<StickerOffer> &offers)
{
    const auto found = std::find_if(offers.begin(), offers.end(),
        [&](const StickerOffer &offer) { return offer.article == position.article; });
    return found == offers.end() || position.exchanged ? nullptr : &*found;
}

/// Whole units that the offer could make cheaper, whatever stickers there are.
qint64 unitsWithin(const StickerOffer &offer, const CalculatedPosition &position)
{
    const qint64 units = position.quantity.wholeUnits();
    const qint64 room = position.room().hundredths() / offer.discount.hundredths();
    return std::min({units, room, offer.limit ? qint64{*offer.limit} : units});
}

std::optional<StickerDeal> dealOver(qint64 units, const StickerOffer &offer)
{
    if (units <= 0)
        return {};
    return StickerDeal{units, offer.stickers, offer.discount};
}

std::vector<CalculatedPosition *> inAscendingNumber(Positions &positions)
{
    std::vector<CalculatedPosition *> ordered;
    for (CalculatedPosition &position : positions)
        ordered.push_back(&position);
    std::sort(ordered.begin(), ordered.end(),
        [](const auto *one, const auto *other) { return one->number < other->number; });
    return ordered;
}

} // namespace

StickerSettlement exchangeStickers(Positions &positions, const StickerClaims &claims,
    const std::vector<StickerOffer> &offers, qint64 stickers)
{
    StickerSettlement settlement{stickers, true};
    for (CalculatedPosition *position : inAscendingNumber(positions)) {
        const StickerOffer *offer = offerFor(*position, offers);
        if (!offer)
            continue;
        const qint64 wanted
            = std::min(claims.value(position->number), unitsWithin(*offer, *position));
        const qint64 paidFor = settlement.left / offer->stickers;
        settlement.sufficed &= wanted <= paidFor;
        position->exchanged = dealOver(std::min(wanted, paidFor), *offer);
        settlement.left -= position->stickers();
        if (position->exchanged)
            position->sumDiscounted -= position->exchanged->discount();
    }
    return settlement;
}

void offerStickers(Positions &positions, const std::vector<StickerOffer> &offers, qint64 stickers)
{
    for (CalculatedPosition &position : positions) {
        if (const StickerOffer *offer = offerFor(position, offers))
            position.offered = dealOver(
                std::min(unitsWithin(*offer, position), stickers / offer->stickers), *offer);
    }
}

} // namespace emulator

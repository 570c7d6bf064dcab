#pragma once

#include "emulator/rules/calculation.h"

#include <QMap>

namespace emulator {

/// Units that a request wants to pay for with stickers, by position number.
using StickerClaims = QMap<int, qint64>;

/// What came of exchanging stickers.
struct StickerSettlement
{
    qint64 left = 0; ///< stickers that the exchanges leave
    bool sufficed = true; ///< false: an exchange got fewer units for want of stickers
};

/// Exchanges the claimed units, positions in ascending number, and takes the discounts off. A
/// position gets no more units than it holds whole ones, than the article's offer allows, than
/// its minimum leaves room for and than the stickers pay for. Claims on articles without an offer
/// and on positions that have an exchange are passed over. `stickers` is not negative.
StickerSettlement exchangeStickers(Positions &positions, const StickerClaims &claims,
    const std::vector<StickerOffer> &offers, qint64 stickers);

/// Offers each position without an exchange what the stickers pay for by its offer alone, within
/// the same bounds. Where that is no unit there is no offer. Takes nothing off.
void offerStickers(Positions &positions, const std::vector<StickerOffer> &offers, qint64 stickers);

} // namespace emulator

#pragma once

#include "emulator/amounts/amount.h"
#include "emulator/data/servicedata.h"

#include <QString>

#include <optional>
#include <vector>

namespace emulator {

/// Units of a position that stickers make cheaper.
struct StickerDeal
{
    qint64 units = 0;
    qint64 stickersPerUnit = 0;
    Amount discountPerUnit;

    qint64 stickers() const { return units * stickersPerUnit; }
    Amount discount() const { return discountPerUnit * units; }
};

/// One position on its way through the rules; every figure is the service's own.
struct CalculatedPosition
{
    int number = 0;
    QString article;
    Amount price;
    Quantity quantity;
    Amount minimumSum; ///< what the position must not get cheaper than
    Amount sum; ///< price × quantity
    Amount sumDiscounted;
    Amount spent; ///< points that pay for it
    Amount earned;
    Amount earnedStatus;
    std::optional<StickerDeal> exchanged; ///< its discount is taken off
    std::optional<StickerDeal> offered; ///< not taken off

    /// How much cheaper it may still get.
    Amount room() const;

    qint64 stickers() const { return exchanged ? exchanged->stickers() : 0; }
};

using Positions = std::vector<CalculatedPosition>;

struct Calculation
{
    Positions positions;
    Amount earnedByCheque; ///< on top of what the positions earn

    Amount sum() const;
    Amount sumDiscounted() const;
    Amount discount() const;
    Amount spent() const;
    Amount earned() const; ///< positions and cheque together
    Amount earnedStatus() const;
    qint64 stickers() const; ///< that the positions have exchanged
};

} // namespace emulator

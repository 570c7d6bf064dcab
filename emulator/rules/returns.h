#pragma once

#include "emulator/soap/request.h"

#include <optional>
#include <vector>

namespace emulator {

/// A position of a registered sale and what earlier returns have taken from it.
struct SoldPosition
{
    int number = 0;
    QString article;
    Quantity quantity; ///< greater than zero
    Amount sum;
    Amount sumDiscounted;
    Amount earned;
    Amount earnedStatus;
    Amount spent;
    Amount stickers; ///< whole ones

    Quantity returned;
    Amount sumReturned;
    Amount sumDiscountedReturned;
    Amount earnedReturned;
    Amount statusReturned;
    Amount spentReturned;
    Amount stickersReturned;
};

/// A part of a sold position that comes back, in the sale's own figures.
struct ReturnedPart
{
    int number = 0; ///< of the returning cheque's position
    int salePosition = 0;
    QString article;
    Amount price; ///< the returning cheque's
    Quantity quantity;
    Amount sum;
    Amount sumDiscounted;
    Amount takeBack; ///< earned points
    Amount takeBackStatus;
    Amount giveBack; ///< spent points
    Amount giveBackStickers; ///< whole ones
};

/// Finds for each returned position the sold one: that of the same number and article first,
/// then others of the article. Sums and points are in proportion to the quantity and rounded so
/// that all parts together come to exactly the sale's; stickers are rounded down to whole ones
/// until the last part. The parts stand in the order of the returned positions. Nothing when more
/// comes back than was sold.
std::optional<std::vector<ReturnedPart>> planReturn(
    std::vector<SoldPosition> sold, const std::vector<RequestPosition> &returned);

} // namespace emulator

#pragma once

#include "emulator/amounts/amount.h"
#include "emulator/data/servicedata.h"

#include <QString>

#include <vector>

namespace emulator {

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

    /// How much cheaper it may still get.
    Amount room() const;
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
};

} // namespace emulator

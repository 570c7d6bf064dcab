#include "emulator/rules/calculation.h"

#include <algorithm>

namespace emulator {

namespace {

Amount total(const Positions &positions, Amount CalculatedPosition::*figure)
{
    Amount sum;
    for (const CalculatedPosition &position : positions)
        sum += position.*figure;
    return sum;
}

} // namespace

Amount CalculatedPosition::room() const
{
    return std::max(Amount(), sumDiscounted - spent - minimumSum);
}

Amount Calculation::sum() const
{
    return total(positions, &CalculatedPosition::sum);
}

Amount Calculation::sumDiscounted() const
{
    return total(positions, &CalculatedPosition::sumDiscounted);
}

Amount Calculation::discount() const
{
    return sum() - sumDiscounted();
}

Amount Calculation::spent() const
{
    return total(positions, &CalculatedPosition::spent);
}

Amount Calculation::earned() const
{
    return earnedByCheque + total(positions, &CalculatedPosition::earned);
}

Amount Calculation::earnedStatus() const
{
    return total(positions, &CalculatedPosition::earnedStatus);
}

qint64 Calculation::stickers() const
{
    qint64 stickers = 0;
    for (const CalculatedPosition &position : positions)
        stickers += position.stickers();
    return stickers;
}

} // namespace emulator

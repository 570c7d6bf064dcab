#pragma once

#include "emulator/rules/calculation.h"
#include "tests/emulator/support/requests.h"

namespace emulator {

/// Positions numbered from 1, nothing taken off yet.
inline Positions calculated(std::initializer_list<Sold> sold)
{
    Positions result;
    for (const RequestPosition &position : positions(sold)) {
        CalculatedPosition start;
        start.number = position.number;
        start.article = position.article;
        start.price = position.price;
        start.quantity = position.quantity;
        start.minimumSum = product(position.minimumPrice, position.quantity).value();
        start.sum = position.sum;
        start.sumDiscounted = position.sum;
        result.push_back(start);
    }
    return result;
}

} // namespace emulator

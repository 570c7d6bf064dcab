#include "emulator/rules/spending.h"

#include <algorithm>

namespace emulator {

namespace {

std::vector<Amount> roomsOf(const Positions &positions)
{
    std::vector<Amount> rooms;
    for (const CalculatedPosition &position : positions)
        rooms.push_back(position.room());
    return rooms;
}

} // namespace

Amount availablePayment(const Calculation &calculation, Percent share, Amount balance)
{
    Amount room;
    for (const Amount positionRoom : roomsOf(calculation.positions))
        room += positionRoom;
    return std::min({balance, share.of(calculation.sumDiscounted()), room});
}

void spend(Positions &positions, Amount points)
{
    const std::vector<Amount> shares = apportion(points, roomsOf(positions));
    for (std::size_t index = 0; index < positions.size(); ++index)
        positions[index].spent = shares[index];
}

} // namespace emulator

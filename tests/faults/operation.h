#pragma once

#include <QString>

#include <array>

namespace faults {

/// What a till is doing when the fault strikes.
enum class Operation
{
    Card,
    Calculation,
    Points,
    Registration,
    Return,
    Rollback,
    Delivery,
    Saving,
    Restoring
};

inline constexpr std::array allOperations{Operation::Card, Operation::Calculation,
    Operation::Points, Operation::Registration, Operation::Return, Operation::Rollback,
    Operation::Delivery, Operation::Saving, Operation::Restoring};

/// What heads its column.
QString titleOf(Operation operation);
/// Whether it asks the service something.
bool asksService(Operation operation);

} // namespace faults

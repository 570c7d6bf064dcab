#pragma once

#include "tests/faults/cell.h"

#include <QString>

#include <vector>

namespace faults {

/// What must come of every fault in every operation, all of it, in the order of the faults.
const std::vector<Cell> &table();
/// Why a fault has no meaning in an operation; empty where it has one.
QString reasonWithoutMeaning(const Fault &fault, Operation operation);
/// A selection that takes less than a minute: every fault strikes once, and every operation is
/// struck.
std::vector<Cell> eachFaultAndOperationOnce();
/// @throws std::logic_error for `Kind::None`, of which nothing stands in the table.
const Cell &cellOf(Kind kind, Operation operation);

} // namespace faults

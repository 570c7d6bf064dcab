#pragma once

#include "tests/faults/operation.h"
#include "tests/faults/outcome.h"
#include "tests/faults/stage.h"

#include <optional>

namespace faults {

/// What is seen of an operation when it has come to its end, or the till to its own.
struct Sight
{
    std::optional<Json> object; ///< nothing: the till ended
    QStringList undelivered; ///< messages
    Json transactions; ///< of the service
    int requests = 0; ///< that were read on the wire
};

/// The figures that the cashier sees behind an operation.
Json figuresOf(const Json &object);

/// What has become of an operation.
/// @param undisturbed the same without a fault; figures are compared with those that came then.
Outcome verdictOn(Operation operation, const Sight &sight, const Sight &undisturbed);

} // namespace faults

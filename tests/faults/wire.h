#pragma once

#include "tests/faults/channel.h"
#include "tests/faults/fault.h"

#include <QByteArray>

namespace faults {

/// Does to a till that has said its request what a fault does without the service being asked.
/// @return false when the service is to be asked.
bool answeredInstead(Kind kind, const Channel &till);

/// Hands over what the service has answered, as a fault lets it come.
/// @param answer head and body.
void handOver(Kind kind, const Channel &till, const QByteArray &answer);

} // namespace faults

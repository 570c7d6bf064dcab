#pragma once

#include "till/accept/options.h"

namespace till::accept {

/// `korvel-till accept`: looks whether a service keeps to the protocol, and prints a report.
/// SIGINT and SIGTERM end it behind the exchange in hand; what it has booked is taken back all the
/// same.
/// @return 0 when no rule failed and nothing stays booked, 1 otherwise, 3 when the service cannot
///         be reached.
/// @throws CannotDo for what is wrong with the options or the flows' files.
int accept(const Options &options);

} // namespace till::accept

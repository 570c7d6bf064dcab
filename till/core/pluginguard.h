#pragma once

#include "till/core/outcome.h"

#include <QString>

#include <functional>

namespace till {

/// Runs a call into the plug-in. Whatever leaves it by exception ends here: it is logged, written
/// to the journal and becomes the outcome's refusal unless there is one already.
/// @param operation the call's name, for log and journal.
/// @return whether the call returned.
/// @throws std::bad_alloc as it comes: without memory the program ends, and the next one goes on.
bool guarded(Outcome &outcome, const QString &operation, const std::function<void()> &call);

} // namespace till

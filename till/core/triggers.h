#pragma once

#include "host/framework/action.h"
#include "host/framework/basicplugin.h"
#include "till/core/outcome.h"

namespace till {

/// Runs the plug-in's triggers before an action, lower priority first, until one stops it.
///
/// A trigger that throws stops nothing: a failing plug-in must not keep the shop from selling.
/// @param outcome receives the number of the result that stopped the action, and the refusal when
///        a trigger threw.
/// @return whether the action goes on.
bool runTriggersBefore(const BasicPlugin &plugin, const control::Action &action, Outcome &outcome);

/// Runs those behind an action, all of them: what was done cannot be stopped any more.
void runTriggersAfter(const BasicPlugin &plugin, const control::Action &action, Outcome &outcome);

} // namespace till

#pragma once

#include "till/console/lineeditor.h"
#include "till/core/till.h"
#include "till/script/interpreter.h"

#include <iosfwd>

namespace till {

/// Executes commands as a person types them, to the end of the input; the prompt says when loyalty
/// is off at that till. What cannot be done and what an `expect` found is told on the error stream,
/// and the prompt goes on.
/// @throws StorageError when the state folder cannot be read or written.
void runPrompt(
    LineEditor &editor, const Till &till, Interpreter &interpreter, std::ostream &errors);

} // namespace till

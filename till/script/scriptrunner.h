#pragma once

#include "till/exitstatus.h"
#include "till/script/interpreter.h"

#include <QString>

#include <iosfwd>

namespace till {

/// Executes a script line by line, as the lines come.
///
/// A failed `expect` is told and the script goes on; a command that cannot be done is told and
/// stops it. Both as "NAME:LINE: …" on the error stream.
/// @param name what the script is called in messages.
/// @throws StorageError when the state folder cannot be read or written.
[[nodiscard]] ExitStatus runScript(
    std::istream &script, const QString &name, Interpreter &interpreter, std::ostream &errors);

} // namespace till

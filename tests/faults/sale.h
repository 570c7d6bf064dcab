#pragma once

#include "tests/faults/operation.h"
#include "tests/faults/outcome.h"
#include "tests/faults/stage.h"

#include <optional>

namespace faults {

/// Brings a fresh till to the moment before an operation. Afterwards a till is running, or none is
/// when `restoring` is to be done.
/// @param isCommandOpening whether the operation is struck when its document is opened, which only
///                         a return reads from a file.
void sellUpTo(Operation operation, Stage &stage, bool isOpeningStruck);

/// The command that is the operation; for `restoring`, which is a start, one that only looks.
QString commandOf(Operation operation, bool isOpeningStruck);

/// The file below the state folder that an operation reads; empty where it reads none.
QString fileOf(Operation operation);

/// Whatever is open is closed, or cancelled; what waits is delivered; the till ends. The service is
/// there again.
void bringToItsEnd(Stage &stage);

} // namespace faults

#pragma once

#include "tests/faults/cell.h"
#include "tests/faults/stage.h"

#include <QStringList>

namespace faults::laws {

/// No exchange is sent twice by the till, or by what it is built upon.
/// @param exchanges that were begun.
/// @param requests  that were read on the wire.
QStringList oneRequestEach(int exchanges, int requests);

/// No exchange lasts longer than its limit and half a second.
QStringList exchangesAreBounded(Operation operation, const MachineControl &control);

/// The books in the end, when the service was there again.
QStringList booksAgree(const Cell &cell, const restart::Books &books);

} // namespace faults::laws

#pragma once

#include <QString>

namespace emulator {

/// One line on standard error, whole also when several threads tell something. Line breaks inside
/// become blanks.
void tell(const QString &line);

} // namespace emulator

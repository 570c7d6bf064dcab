#pragma once

#include <QString>

namespace logging {

/// The message with line breaks and other control and invisible characters written as "\n", "\r" or
/// "\u0007": a text from outside could otherwise pass for lines of the log itself.
[[nodiscard]] QString onOneLine(const QString &message);

} // namespace logging

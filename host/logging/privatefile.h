#pragma once

#include <QString>

namespace logging {

/// Makes the file unless it is there, and takes it from everybody but its owner; false when that
/// fails.
[[nodiscard]] bool makePrivateFile(const QString &path);

} // namespace logging

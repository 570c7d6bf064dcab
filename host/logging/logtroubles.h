#pragma once

#include <QString>

/// Why the log cannot be set up, thrown as SpokenError.
namespace logging {

[[noreturn]] void throwPropertiesUnreadable(const QString &propertiesFile);
/// @param troubles what the logging library says of the file.
[[noreturn]] void throwPropertiesUnusable(const QString &propertiesFile, const QString &troubles);
[[noreturn]] void throwUnwritable(const QString &path);

} // namespace logging

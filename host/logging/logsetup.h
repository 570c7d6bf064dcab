#pragma once

#include "host/export.h"

#include <QString>

/// Where the loggers of `Log4Qt::LogManager` write to. Until `setUp` is called: nowhere.
namespace logging {

/// Name of the log file within its folder; older ones get ".1" to ".4" behind it.
POSHOST_EXPORT extern const QString fileName;

/// Directs all loggers to a file, in place of wherever they wrote to before.
/// @param folder         made if need be. It gets at most five files of 1 MiB, which only the
///                       till's user can read: they tell what customers bought.
/// @param propertiesFile describes appenders and levels in the format of the library behind the
///                       loggers, and then counts instead of `folder`; empty: none.
/// @throws std::runtime_error when the folder cannot be written to, or the properties file not be
///         read or used; nothing is logged then.
POSHOST_EXPORT void setUp(const QString &folder, const QString &propertiesFile);

} // namespace logging

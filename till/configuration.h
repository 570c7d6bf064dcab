#pragma once

#include <QString>

namespace till {

/// Reads the settings into `Singleton<Config>`: the given file, otherwise "till.ini" of the current
/// folder, otherwise nothing; from then on the till speaks the language that they say.
/// @throws ConfigError when the file cannot be read or used, or names no language of the till.
void readConfiguration(const QString &given);

/// Whether there is a configuration to read: the given file, or "till.ini" of the current folder.
[[nodiscard]] bool isConfigured(const QString &given);

/// The state folder: the given one, otherwise that of the settings, otherwise the one below the
/// user's home. Nothing is created.
[[nodiscard]] QString stateFolder(const QString &given);

} // namespace till

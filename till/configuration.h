#pragma once

#include <QString>

namespace till {

/// Reads the settings into `Singleton<Config>`: the given file, otherwise "till.ini" of the current
/// folder, otherwise those of the installed till, otherwise nothing; from then on the till speaks
/// the language that they say.
/// @throws ConfigError when the file cannot be read or used, or names no language of the till.
void readConfiguration(const QString &given);

/// Whether there is a configuration to read: the given file, "till.ini" of the current folder, or
/// that of the installed till.
[[nodiscard]] bool isConfigured(const QString &given);

/// The file that `readConfiguration` reads; empty when there is none to read.
[[nodiscard]] QString configurationFile(const QString &given);

/// Whether the till is to sell with loyalty, as the settings that were read say.
[[nodiscard]] bool isLoyaltyWanted();

/// The state folder: the given one, otherwise that of the settings, otherwise the one below the
/// user's home. Nothing is created.
[[nodiscard]] QString stateFolder(const QString &given);

} // namespace till

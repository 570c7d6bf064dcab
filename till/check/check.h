#pragma once

#include "till/check/finding.h"

#include <QString>

namespace till::check {

/// What `korvel-till check` can be called with.
struct Options
{
    QString configFile; ///< empty: not given
    QString pluginFile; ///< empty: not given
    QString stateFolder; ///< empty: not given
    QString card; ///< number of a test card; empty: none
    bool asksService = true;
    bool json = false; ///< for programs instead of people
};

/// Looks at configuration, machine and service. Changes nothing on the machine and books nothing.
/// Reads the settings into `Singleton<Config>`; from then on the program speaks their language.
/// @throws ConfigError when the file that was given is not there.
[[nodiscard]] Findings findingsOf(const Options &options);

/// Tells the findings on standard output, in the language of the settings.
/// @return the exit status of the program, by the worst of them.
/// @throws ConfigError when the file that was given is not there.
[[nodiscard]] int check(const Options &options);

} // namespace till::check

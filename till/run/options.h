#pragma once

#include <QString>

namespace till {

/// What `korvel-till run` was called with. Empty: not given.
struct RunOptions
{
    QString configFile;
    QString pluginFile;
    QString stateFolder;
    QString transcriptFile; ///< "-": standard output
    QString scriptFile; ///< empty: standard input
};

} // namespace till

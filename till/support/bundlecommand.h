#pragma once

#include "till/run/options.h"

#include <string>

namespace CLI {
class App;
} // namespace CLI

namespace till {

/// The option `--bundle FILE` of `korvel-till check`: an archive for support is written.
///
/// Belongs to the command that it is added to, and must outlive its parsing.
class BundleCommand
{
public:
    /// Adds the option to the command.
    explicit BundleCommand(CLI::App &check);

    /// Whether the option was given.
    [[nodiscard]] bool isWanted() const { return !m_file.empty(); }
    /// Writes the archive and says so. What is wrong stands on standard error in one line.
    /// @param options those of them that name settings, state folder and plug-in.
    /// @return the exit status of the program; 1 when something could not be put in.
    [[nodiscard]] int execute(const RunOptions &options, const char *version) const;

private:
    std::string m_file;
};

} // namespace till

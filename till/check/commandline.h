#pragma once

#include "till/support/bundlecommand.h"

#include <string>

namespace CLI {
class App;
} // namespace CLI

namespace till {

/// The words of `korvel-till check`.
///
/// Belongs to the command line that it is added to, which must not outlive it.
class CheckCommandLine
{
public:
    /// Adds `check` with its options.
    explicit CheckCommandLine(CLI::App &commandLine);

    [[nodiscard]] bool isWanted() const;
    /// Carries the command out. What cannot be looked at stands on standard error in one line.
    /// @return the exit status of the program.
    [[nodiscard]] int execute() const;

private:
    [[nodiscard]] int writeBundle() const;

    CLI::App *m_check;
    std::string m_config;
    std::string m_plugin;
    std::string m_state;
    std::string m_card;
    bool m_skipsService = false;
    bool m_json = false;
    BundleCommand m_bundle; ///< instead of the check
};

} // namespace till

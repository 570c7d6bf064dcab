#pragma once

#include "till/explain/explain.h"

#include <CLI/CLI.hpp>

#include <string>

namespace till {

/// The words of `korvel-till explain`.
///
/// Belongs to the command line that it is added to, which must not outlive it.
class ExplainCommandLine
{
public:
    /// Adds `explain` with its options.
    explicit ExplainCommandLine(CLI::App &commandLine);

    /// Whether it was called for.
    [[nodiscard]] bool isWanted() const { return m_command->parsed(); }
    /// Carries it out. What is wrong stands on standard error in one line.
    /// @return the exit status of the program.
    [[nodiscard]] int execute() const;

private:
    [[nodiscard]] ExplainOptions given() const;

    CLI::App *m_command;
    std::string m_asked;
    std::string m_id;
    std::string m_config;
    std::string m_state;
    std::string m_bundle;
    bool m_isCheque = false;
    bool m_isCard = false;
    bool m_json = false;
    bool m_withoutService = false;
};

} // namespace till

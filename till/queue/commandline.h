#pragma once

#include "till/queue/mending.h"
#include "till/queue/queueoptions.h"

#include <CLI/CLI.hpp>

#include <functional>
#include <string>
#include <vector>

namespace till {

/// The words of `korvel-till queue`.
///
/// Belongs to the command line that it is added to, which must not outlive it.
class QueueCommandLine
{
public:
    /// Adds `queue` with its commands and options.
    explicit QueueCommandLine(CLI::App &commandLine);

    /// Whether one of its commands was called for.
    [[nodiscard]] bool isWanted() const { return m_command != nullptr; }
    /// Carries the command out. What is wrong stands on standard error in one line.
    /// @return the exit status of the program.
    [[nodiscard]] int execute() const;

private:
    using Command = std::function<int(const QueueOptions &options)>;

    CLI::App *add(const std::string &name, const std::string &purpose, const Command &command);
    void addCommonOptions(CLI::App *command);
    void addLooking();
    void addMending();
    void addSending();
    void addTransfer();
    [[nodiscard]] queuecommands::Meant meant() const;

    CLI::App *m_queue;
    Command m_command; ///< the one that was called for
    std::string m_config;
    std::string m_state;
    bool m_json = false;
    bool m_all = false;
    bool m_plain = false;
    bool m_once = false;
    std::string m_id;
    std::string m_file;
    std::vector<std::string> m_ids;
    std::vector<std::string> m_states;
};

} // namespace till

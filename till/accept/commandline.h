#pragma once

#include "till/accept/options.h"

#include <CLI/CLI.hpp>

#include <string>
#include <vector>

namespace till::accept {

/// The words of `korvel-till accept`.
///
/// Belongs to the command line that it is added to, which must not outlive it.
class AcceptCommandLine
{
public:
    explicit AcceptCommandLine(CLI::App &commandLine);

    [[nodiscard]] bool isWanted() const { return m_command->parsed(); }
    /// Carries the command out. What is wrong stands on standard error in one line.
    /// @return the exit status of the program.
    [[nodiscard]] int execute() const;

private:
    void addAccess();
    void addTestData();
    void addRun();
    void addText(
        const std::string &name, std::string &value, const char *what, const std::string &purpose);
    [[nodiscard]] Options options() const;

    CLI::App *m_command;
    std::string m_url, m_user, m_passwordFile, m_config, m_caFile;
    std::string m_card, m_unknownCard, m_code, m_codeCommand, m_coupon;
    std::string m_pos, m_shop, m_organization, m_orgName, m_protocol;
    std::vector<std::string> m_articles, m_only;
    int m_timeout = 0;
    bool m_writes = false;
    bool m_json = false;
    bool m_lists = false;
};

} // namespace till::accept

#pragma once

#include "till/run/options.h"

#include <string>

namespace CLI {
class App;
} // namespace CLI

namespace till {

/// The options of a till that a cashier works at, as the command line has them.
///
/// Belongs to the command that it is added to, and must outlive its parsing.
class TillOptions
{
public:
    /// Adds the options to the command.
    explicit TillOptions(CLI::App &command);

    [[nodiscard]] RunOptions given() const;

private:
    std::string m_config;
    std::string m_plugin;
    std::string m_state;
};

} // namespace till

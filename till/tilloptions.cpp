#include "till/tilloptions.h"

#include <CLI/CLI.hpp>

namespace till {

TillOptions::TillOptions(CLI::App &command)
{
    command.add_option("--config", m_config, "settings; without it till.ini, if there is one")
        ->option_text("FILE");
    command.add_option("--plugin", m_plugin, "the plug-in; without it the one beside the program")
        ->option_text("FILE");
    command.add_option("--state", m_state, "documents, queue, journal, receipts and log")
        ->option_text("DIR");
}

RunOptions TillOptions::given() const
{
    RunOptions options;
    options.configFile = QString::fromStdString(m_config);
    options.pluginFile = QString::fromStdString(m_plugin);
    options.stateFolder = QString::fromStdString(m_state);
    return options;
}

} // namespace till

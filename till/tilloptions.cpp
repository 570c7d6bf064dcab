#include "till/tilloptions.h"

#include "till/usage.h"

#include <CLI/CLI.hpp>

using namespace Qt::StringLiterals;

namespace till {

TillOptions::TillOptions(CLI::App &command)
{
    command
        .add_option("--config", m_config,
            spoken({u"commandLineConfig"_s,
                u"настройки; без него till.ini в этой папке или установленный"_s}))
        ->option_text("FILE");
    command
        .add_option("--plugin", m_plugin,
            spoken({u"commandLinePlugin"_s,
                u"модуль лояльности; без него установленный с программой"_s}))
        ->option_text("FILE");
    command
        .add_option("--state", m_state,
            spoken({u"commandLineTillState"_s, u"документы, очередь, журналы и чеки"_s}))
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

#include "till/check/commandline.h"

#include "host/framework/spokenerror.h"
#include "till/check/check.h"
#include "till/exitstatus.h"
#include "till/queue/output.h"
#include "till/usage.h"
#include "till/version.h"

#include <CLI/CLI.hpp>

using namespace Qt::StringLiterals;

namespace till {

CheckCommandLine::CheckCommandLine(CLI::App &commandLine)
    : m_check(commandLine.add_subcommand("check",
        spoken({u"commandLineCheck"_s,
            u"проверяет настройки, машину и сервис; 0: порядок, 1: предупреждения, 2: ошибки"_s})))
    , m_bundle(*m_check)
{
    m_check
        ->add_option("--config", m_config,
            spoken({u"commandLineConfig"_s,
                u"настройки; без него till.ini в этой папке или установленный"_s}))
        ->option_text("FILE");
    m_check
        ->add_option("--plugin", m_plugin,
            spoken({u"commandLinePlugin"_s,
                u"модуль лояльности; без него установленный с программой"_s}))
        ->option_text("FILE");
    m_check
        ->add_option("--state", m_state,
            spoken({u"commandLineQueueState"_s, u"папка состояния кассы; без него Till:state"_s}))
        ->option_text("DIR");
    CLI::Option *card = m_check
                            ->add_option("--card", m_card,
                                spoken({u"commandLineCheckCard"_s,
                                    u"тестовая карта, баланс которой запросить"_s}))
                            ->option_text("NUMBER");
    m_check
        ->add_flag("--no-service", m_skipsService,
            spoken({u"commandLineCheckNoService"_s, u"не обращаться к сервису"_s}))
        ->excludes(card);
    m_check->add_flag(
        "--json", m_json, spoken({u"commandLineJson"_s, u"для программ: JSON вместо текста"_s}));
}

bool CheckCommandLine::isWanted() const
{
    return m_check->parsed();
}

int CheckCommandLine::execute() const
{
    if (m_bundle.isWanted())
        return writeBundle();
    try {
        check::Options options;
        options.configFile = QString::fromStdString(m_config);
        options.pluginFile = QString::fromStdString(m_plugin);
        options.stateFolder = QString::fromStdString(m_state);
        options.card = QString::fromStdString(m_card);
        options.asksService = !m_skipsService;
        options.json = m_json;
        return check::check(options);
    } catch (const SpokenError &error) {
        complain(error.tr().ui());
    } catch (const std::exception &error) {
        complain(QString::fromUtf8(error.what()));
    }
    return static_cast<int>(ExitStatus::Unusable);
}

int CheckCommandLine::writeBundle() const
{
    RunOptions options;
    options.configFile = QString::fromStdString(m_config);
    options.pluginFile = QString::fromStdString(m_plugin);
    options.stateFolder = QString::fromStdString(m_state);
    return m_bundle.execute(options, version());
}

} // namespace till

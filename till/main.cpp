// korvel-till: sells cheques with the loyalty plug-in, and looks after what waits for the service.

#include "till/queue/commandline.h"
#include "till/run/run.h"
#include "till/usage.h"

#include <QCoreApplication>

#include <CLI/CLI.hpp>

#include <string>

namespace {

constexpr auto wrongUsage = static_cast<int>(till::ExitStatus::CannotDo);

/// The words of the command line.
class CommandLine
{
public:
    CommandLine()
    {
        m_app.require_subcommand(1);
        m_app.set_version_flag("--version", "korvel-till " KORVEL_VERSION);
        m_app.failure_message([](const CLI::App *app, const CLI::Error &error) {
            return till::usageError(*app, error);
        });
        m_run->add_option("--config", m_config, "settings; without it till.ini, if there is one")
            ->option_text("FILE");
        m_run
            ->add_option("--plugin", m_plugin, "the plug-in; without it the one beside the program")
            ->option_text("FILE");
        m_run->add_option("--state", m_state, "documents, queue, journal, receipts and log")
            ->option_text("DIR");
        m_run
            ->add_option("--transcript", m_transcript,
                "one JSON object per command goes there; -: standard output")
            ->option_text("FILE");
        m_run->add_option("script", m_script, "commands; without it standard input")
            ->option_text("SCRIPT");
    }

    int execute(int argc, char *argv[])
    {
        try {
            m_app.parse(argc, argv);
        } catch (const CLI::ParseError &error) {
            return m_app.exit(error) == 0 ? 0 : wrongUsage;
        }
        return m_queue.isWanted() ? m_queue.execute() : static_cast<int>(till::run(runOptions()));
    }

private:
    [[nodiscard]] till::RunOptions runOptions() const
    {
        const auto text = [](const std::string &value) { return QString::fromStdString(value); };
        return {text(m_config), text(m_plugin), text(m_state), text(m_transcript), text(m_script)};
    }

    CLI::App m_app{"A till that sells cheques with the loyalty plug-in.", "korvel-till"};
    till::QueueCommandLine m_queue{m_app};
    CLI::App *m_run = m_app.add_subcommand("run", "sells by a script or at a prompt");
    std::string m_config;
    std::string m_plugin;
    std::string m_state;
    std::string m_transcript;
    std::string m_script;
};

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    return CommandLine().execute(argc, argv);
}

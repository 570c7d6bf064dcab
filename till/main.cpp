// korvel-till: sells cheques with the loyalty plug-in, and looks after what waits for the service.

#include "till/language/language.h"
#include "till/queue/commandline.h"
#include "till/run/run.h"
#include "till/tilloptions.h"
#include "till/usage.h"
#include "till/windowstart.h"

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
        if (m_queue.isWanted())
            return m_queue.execute();
        return static_cast<int>(m_window->parsed() ? till::startWindow(m_windowOptions.given())
                                                   : till::run(runOptions()));
    }

private:
    [[nodiscard]] till::RunOptions runOptions() const
    {
        till::RunOptions options = m_runOptions.given();
        options.transcriptFile = QString::fromStdString(m_transcript);
        options.scriptFile = QString::fromStdString(m_script);
        return options;
    }

    CLI::App m_app{"A till that sells cheques with the loyalty plug-in.", "korvel-till"};
    till::QueueCommandLine m_queue{m_app};
    CLI::App *m_run = m_app.add_subcommand("run", "sells by a script or at a prompt");
    till::TillOptions m_runOptions{*m_run};
    CLI::App *m_window = m_app.add_subcommand("window", "opens the cashier's window");
    till::TillOptions m_windowOptions{*m_window};
    std::string m_transcript;
    std::string m_script;
};

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    // As the system has it, until the settings are read.
    till::speakAsConfigured();
    return CommandLine().execute(argc, argv);
}

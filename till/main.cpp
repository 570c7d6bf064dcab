// korvel-till: sells cheques with the loyalty plug-in, looks after what waits for the service, and
// looks whether a service keeps to the protocol.

#include "till/accept/commandline.h"
#include "till/check/commandline.h"
#include "till/explain/commandline.h"
#include "till/language/language.h"
#include "till/queue/commandline.h"
#include "till/run/run.h"
#include "till/tilloptions.h"
#include "till/usage.h"
#include "till/version.h"
#include "till/windowstart.h"

#include <QCoreApplication>

#include <CLI/CLI.hpp>

#include <string>

using namespace Qt::StringLiterals;

namespace {

constexpr auto wrongUsage = static_cast<int>(till::ExitStatus::CannotDo);

/// The words of the command line.
class CommandLine
{
public:
    CommandLine()
    {
        m_app.require_subcommand(1);
        m_app.set_version_flag("--version", std::string("korvel-till ") + till::version());
        m_app.failure_message([](const CLI::App *app, const CLI::Error &error) {
            return till::usageError(*app, error);
        });
        m_run
            ->add_option("--transcript", m_transcript,
                till::spoken({u"commandLineTranscript"_s,
                    u"сюда пишется по объекту JSON на команду; -: стандартный вывод"_s}))
            ->option_text("FILE");
        m_run
            ->add_option("script", m_script,
                till::spoken({u"commandLineScript"_s, u"команды; без него стандартный ввод"_s}))
            ->option_text("SCRIPT");
        till::speakHelp(m_app);
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
        if (m_accept.isWanted())
            return m_accept.execute();
        if (m_check.isWanted())
            return m_check.execute();
        if (m_explain.isWanted())
            return m_explain.execute();
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

    CLI::App m_app{
        till::spoken({u"commandLineTill"_s, u"Касса, которая продаёт с модулем лояльности."_s}),
        "korvel-till"};
    CLI::App *m_run = m_app.add_subcommand("run",
        till::spoken({u"commandLineRun"_s, u"продаёт по сценарию или по командам с клавиатуры"_s}));
    till::TillOptions m_runOptions{*m_run};
    CLI::App *m_window = m_app.add_subcommand(
        "window", till::spoken({u"commandLineWindow"_s, u"открывает окно кассира"_s}));
    till::TillOptions m_windowOptions{*m_window};
    till::QueueCommandLine m_queue{m_app};
    till::CheckCommandLine m_check{m_app};
    till::accept::AcceptCommandLine m_accept{m_app};
    till::ExplainCommandLine m_explain{m_app};
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

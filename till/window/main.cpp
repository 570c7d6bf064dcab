// korvel-till-window: the cashier's window of the till.

#include "host/framework/spokenerror.h"
#include "till/configuration.h"
#include "till/exitstatus.h"
#include "till/language/language.h"
#include "till/run/workplace.h"
#include "till/tilloptions.h"
#include "till/usage.h"
#include "till/version.h"
#include "till/window/busywatch.h"
#include "till/window/demo/demo.h"
#include "till/window/mainwindow.h"
#include "till/window/questiondialog.h"
#include "till/window/queueglance.h"
#include "till/window/style.h"
#include "till/window/texts.h"
#include "till/window/windowcashier.h"

#include <QApplication>

#include <CLI/CLI.hpp>

#include <iostream>
#include <optional>
#include <stdexcept>
#include <string>

using namespace Qt::StringLiterals;

namespace {

using till::ExitStatus;

int show(const till::RunOptions &options, const QString &band)
{
    till::WindowCashier cashier;
    till::Workplace workplace(options, cashier);
    till::Desk desk(workplace.till(), workplace.exchanges(), workplace.recorder(), cashier);
    desk.setPaymentForm([&cashier](double rest) { return cashier.takeMoney(rest); });
    till::QueueGlance glance(
        QCoreApplication::applicationDirPath() + QStringLiteral("/korvel-till"), options);
    till::MainWindow window(desk);
    window.watchQueueWith(glance);
    window.setBand(band);
    const till::BusyWatch watch(window.veil());
    cashier.sitDownAt(window, [&window] { window.uncover(); });
    window.fillScreen();
    desk.start();
    window.refresh();
    return QApplication::exec();
}

int demonstrate(const till::RunOptions &options)
{
    if (till::QuestionDialog(
            till::texts::demoOffer, till::texts::demoStart, till::texts::demoDecline, nullptr)
            .exec()
        != QDialog::Accepted)
        throw SpokenError(till::texts::noConfiguration);
    const till::Demo demo(options);
    return show(demo.options(), till::texts::demoBand.arg(demo.service().url().toString()).ui());
}

int unusable(const std::string &complaint)
{
    std::cerr << "korvel-till-window: " << complaint << std::endl;
    return static_cast<int>(ExitStatus::Unusable);
}

int run(const till::RunOptions &options)
{
    try {
        // The offer of a demonstration comes before any setting.
        till::speakAsConfigured();
        till::applyStyle();
        return till::isConfigured(options.configFile) ? show(options, {}) : demonstrate(options);
    } catch (const SpokenError &error) {
        return unusable(error.tr().ui().toStdString());
    } catch (const std::exception &error) {
        return unusable(error.what());
    }
}

/// Reads the command line.
/// @return the exit status when the program ends with that: help, version or a wrong word.
std::optional<int> read(int argc, char *argv[], till::RunOptions &options)
{
    // Texts need an application; only the window's needs a display.
    const QCoreApplication application(argc, argv);
    till::speakAsConfigured();
    CLI::App commandLine{
        till::spoken({u"commandLineWindowProgram"_s, u"Окно кассира."_s}), "korvel-till-window"};
    commandLine.set_version_flag("--version", std::string("korvel-till-window ") + till::version());
    commandLine.failure_message(
        [](const CLI::App *app, const CLI::Error &error) { return till::usageError(*app, error); });
    const till::TillOptions given(commandLine);
    till::speakHelp(commandLine);
    try {
        commandLine.parse(argc, argv);
    } catch (const CLI::ParseError &error) {
        return commandLine.exit(error) == 0 ? 0 : static_cast<int>(ExitStatus::CannotDo);
    }
    options = given.given();
    return std::nullopt;
}

int start(int argc, char *argv[])
{
    till::RunOptions options;
    if (const auto exitStatus = read(argc, argv, options))
        return *exitStatus;
    // The windows' library would take "--plugin" for an option of its own.
    int programName = 1;
    const QApplication application(programName, argv);
    return run(options);
}

} // namespace

int main(int argc, char *argv[])
{
    try {
        return start(argc, argv);
    } catch (const std::exception &error) {
        return unusable(error.what());
    }
}

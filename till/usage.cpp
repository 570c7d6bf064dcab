#include "till/usage.h"

#include "host/framework/tr.h"

#include <CLI/CLI.hpp>

using namespace Qt::StringLiterals;

namespace till {

namespace {

/// The command of which one more word was expected.
const CLI::App &lastCommand(const CLI::App &app)
{
    const auto given = app.get_subcommands();
    return given.empty() ? app : lastCommand(*given.front());
}

std::string commandNames(const CLI::App &app)
{
    std::string names;
    for (const CLI::App *command : app.get_subcommands([](const CLI::App *) { return true; }))
        names += (names.empty() ? "" : ", ") + command->get_name();
    return names;
}

std::string complaint(const CLI::App &app, const CLI::Error &error)
{
    if (error.get_exit_code() != static_cast<int>(CLI::ExitCodes::RequiredError)
        || commandNames(lastCommand(app)).empty())
        return error.what();
    const auto words = app.remaining(true);
    const tr::Tr what = words.empty() ? tr::Tr(u"usageCommandMissing"_s, u"не указана команда"_s)
                                      : tr::Tr(u"usageNoCommand"_s, u"«%1» — не команда"_s)
                                            .arg(QString::fromStdString(words.front()));
    return tr::Tr(u"usageOneOf"_s, u"%1; есть команды %2"_s)
        .arg(what)
        .arg(QString::fromStdString(commandNames(lastCommand(app))))
        .ui()
        .toStdString();
}

} // namespace

std::string usageError(const CLI::App &app, const CLI::Error &error)
{
    const QString name = QString::fromStdString(app.get_name());
    return tr::Tr(u"usageSeeHelp"_s, u"%1: %2; смотрите %1 --help"_s)
               .arg(name)
               .arg(QString::fromStdString(complaint(app, error)))
               .ui()
               .toStdString()
        + '\n';
}

} // namespace till

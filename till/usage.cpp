#include "till/usage.h"

#include <CLI/CLI.hpp>

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
    const std::string what
        = words.empty() ? "a command is missing" : "\"" + words.front() + "\" is no command";
    return what + "; it is one of " + commandNames(lastCommand(app));
}

} // namespace

std::string usageError(const CLI::App &app, const CLI::Error &error)
{
    return app.get_name() + ": " + complaint(app, error) + "; see " + app.get_name() + " --help\n";
}

} // namespace till

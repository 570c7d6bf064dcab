#include "till/usage.h"

#include "host/framework/tr.h"

#include <CLI/CLI.hpp>

#include <memory>

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

tr::Tr unknownCommand(const CLI::App &app)
{
    const auto words = app.remaining(true);
    const tr::Tr what = words.empty() ? tr::Tr(u"usageCommandMissing"_s, u"не указана команда"_s)
                                      : tr::Tr(u"usageNoCommand"_s, u"«%1» — не команда"_s)
                                            .arg(QString::fromStdString(words.front()));
    return tr::Tr(u"usageOneOf"_s, u"%1; есть команды %2"_s)
        .arg(what)
        .arg(QString::fromStdString(commandNames(lastCommand(app))));
}

/// What the library's text begins with: the option or argument that it complains of.
QString subject(const CLI::Error &error)
{
    return QString::fromUtf8(error.what()).section(u' ', 0, 0).remove(u':');
}

tr::Tr complaint(const CLI::App &app, const CLI::Error &error)
{
    switch (static_cast<CLI::ExitCodes>(error.get_exit_code())) {
    case CLI::ExitCodes::RequiredError:
        return commandNames(lastCommand(app)).empty()
            ? tr::Tr(u"usageArgumentMissing"_s, u"не хватает аргумента «%1»"_s).arg(subject(error))
            : unknownCommand(app);
    case CLI::ExitCodes::ExtrasError:
        return tr::Tr(u"usageUnexpected"_s, u"лишнее слово: «%1»"_s)
            .arg(QString::fromStdString(app.remaining(true).front()));
    case CLI::ExitCodes::ArgumentMismatch:
        return tr::Tr(u"usageValueMissing"_s, u"не хватает значения для %1"_s).arg(subject(error));
    case CLI::ExitCodes::ExcludesError:
        return tr::Tr(u"usageNotTogether"_s, u"%1 и %2 не указывают вместе"_s)
            .arg(subject(error))
            .arg(QString::fromUtf8(error.what()).section(u' ', -1));
    case CLI::ExitCodes::ValidationError:
    case CLI::ExitCodes::ConversionError:
        return tr::Tr(u"usageValueWrong"_s, u"значение не подходит для %1"_s).arg(subject(error));
    default:
        return {tr::undefined, QString::fromUtf8(error.what())};
    }
}

} // namespace

std::string usageError(const CLI::App &app, const CLI::Error &error)
{
    const QString name = QString::fromStdString(app.get_name());
    return tr::Tr(u"usageSeeHelp"_s, u"%1: %2; смотрите %1 --help"_s)
               .arg(name)
               .arg(complaint(app, error))
               .ui()
               .toStdString()
        + '\n';
}

std::string spoken(const tr::Tr &text)
{
    return text.ui().toStdString();
}

void speakHelp(CLI::App &app)
{
    const auto formatter = std::make_shared<CLI::Formatter>();
    formatter->label("Usage", spoken({u"commandLineWord"_s, u"Вызов"_s}));
    formatter->label("OPTIONS", spoken({u"commandLineOptionsWord"_s, u"ПАРАМЕТРЫ"_s}));
    formatter->label("SUBCOMMAND", spoken({u"commandLineCommandWord"_s, u"КОМАНДА"_s}));
    formatter->label("Positionals", spoken({u"commandLineArguments"_s, u"Аргументы"_s}));
    formatter->label("Excludes", spoken({u"commandLineExcludes"_s, u"без"_s}));
    app.formatter(formatter);
    app.get_help_ptr()->description(
        spoken({u"commandLineHelp"_s, u"выводит эту справку и завершает работу"_s}));
    if (CLI::Option *version = app.get_version_ptr())
        version->description(
            spoken({u"commandLineVersion"_s, u"выводит версию программы и завершает работу"_s}));
    for (CLI::Option *option : app.get_options())
        option->group(spoken({u"commandLineOptions"_s, u"Параметры"_s}));
    for (CLI::App *command : app.get_subcommands([](const CLI::App *) { return true; })) {
        command->group(spoken({u"commandLineCommands"_s, u"Команды"_s}));
        speakHelp(*command);
    }
}

} // namespace till

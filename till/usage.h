#pragma once

#include "host/framework/tr.h"

#include <string>

namespace CLI {
class App;
class Error;
} // namespace CLI

namespace till {

/// What is wrong with a command line that could not be read, in one line with its end; names the
/// commands where one is missing or unknown.
std::string usageError(const CLI::App &app, const CLI::Error &error);

/// A text of a command line, in the language of the interface.
[[nodiscard]] std::string spoken(const tr::Tr &text);

/// Gives the words that the library puts into every help text the language of the interface: of the
/// command line and of all commands and options that it has by now.
void speakHelp(CLI::App &app);

} // namespace till

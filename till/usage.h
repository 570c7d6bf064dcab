#pragma once

#include <string>

namespace CLI {
class App;
class Error;
} // namespace CLI

namespace till {

/// What is wrong with a command line that could not be read, in one line with its end; names the
/// commands where one is missing or unknown.
std::string usageError(const CLI::App &app, const CLI::Error &error);

} // namespace till

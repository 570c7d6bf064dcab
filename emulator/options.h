#pragma once

#include "emulator/http/server.h"
#include "emulator/service.h"

#include <optional>
#include <stdexcept>

namespace emulator {

/// The command line cannot be used; `what()` is one line that names the option or file.
class OptionsError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

struct Options
{
    ListenAddress listen;
    std::optional<TlsFiles> tls;
    ServiceSettings service;
};

/// What the command line and the files that it names ask for. Nothing when help or the version
/// was asked for and printed. Throws OptionsError, DataError, FaultWordsError or ServerError.
std::optional<Options> readOptions(int argc, const char *const *argv);

} // namespace emulator

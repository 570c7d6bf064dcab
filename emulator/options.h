#pragma once

#include "emulator/http/server.h"
#include "emulator/recording/recorder.h"
#include "emulator/service.h"

#include <optional>
#include <stdexcept>
#include <variant>

namespace emulator {

/// The command line cannot be used; `what()` is one line that names the option or file.
class OptionsError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// How tills reach the program.
struct Listening
{
    ListenAddress address;
    std::optional<TlsFiles> tls;
};

struct ServeOptions
{
    Listening listening;
    ServiceSettings service;
};

struct RecordOptions
{
    Listening listening;
    RecorderSettings recorder;
};

struct ReplayOptions
{
    Listening listening;
    QString folder;
    bool withTimes = false;
};

/// What the program is to be: the service, or what one of the subcommands makes of it.
using Options = std::variant<ServeOptions, RecordOptions, ReplayOptions>;

/// What the command line and the files that it names ask for. Nothing when help or the version
/// was asked for and printed. Throws OptionsError, DataError, FaultWordsError, ServerError or
/// UpstreamError.
std::optional<Options> readOptions(int argc, const char *const *argv);

} // namespace emulator

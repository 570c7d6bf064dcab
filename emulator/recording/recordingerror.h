#pragma once

#include <QString>

#include <stdexcept>

namespace emulator {

/// A recording that cannot be read or written; `what()` is one line that names the file.
class RecordingError : public std::runtime_error
{
public:
    explicit RecordingError(const QString &message)
        : std::runtime_error(message.toStdString())
    { }
};

} // namespace emulator

#pragma once

#include <QtGlobal>

#include <chrono>

namespace soak {

/// What the system says about a process at a moment.
struct ProcessState
{
    qint64 memory = 0; ///< bytes that are its own: no files, no shared libraries
    int descriptors = 0; ///< open files, sockets and the like
    std::chrono::nanoseconds processor{}; ///< what its main thread has used so far
};

/// @throws std::runtime_error when there is no such process.
ProcessState stateOf(qint64 processId);

} // namespace soak

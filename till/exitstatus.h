#pragma once

namespace till {

/// How `korvel-till` ends, as its caller sees it.
enum class ExitStatus : int
{
    Success = 0,
    /// An expectation or a rule failed, a shift has open ends, or a message of the queue is not
    /// where it was to go; what could be done was done.
    NotAllDone = 1,
    CannotDo = 2, ///< a command or argument is wrong or cannot be done now
    Unusable = 3, ///< the plug-in, the configuration, the state folder or a service to be accepted
};

} // namespace till

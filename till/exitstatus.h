#pragma once

namespace till {

/// How `korvel-till` ends, as its caller sees it.
enum class ExitStatus : int
{
    Success = 0,
    ExpectationFailed = 1, ///< the script went on
    CannotDo = 2, ///< a command or argument is wrong or cannot be done now
    Unusable = 3, ///< the plug-in, the configuration or the state folder
};

} // namespace till

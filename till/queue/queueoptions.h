#pragma once

#include <QString>

namespace till {

/// What every command of `korvel-till queue` can be called with.
struct QueueOptions
{
    QString configFile; ///< empty: not given
    QString stateFolder; ///< empty: not given
    bool json = false; ///< for programs instead of people
};

} // namespace till

#pragma once

#include "log4qt/log4qt.h"

#include <QString>

namespace Log4Qt {

class LOG4QT_EXPORT Level
{
public:
    enum Value
    {
        NULL_INT = 0,
        ALL_INT = 32,
        TRACE_INT = 64,
        DEBUG_INT = 96,
        INFO_INT = 128,
        WARN_INT = 150,
        ERROR_INT = 182,
        FATAL_INT = 214,
        OFF_INT = 255
    };
    Level(Value value = NULL_INT);

    QString toString() const;
};

} // namespace Log4Qt

#pragma once

#include "log4qt/level.h"

#include <QTextStream>

namespace Log4Qt {

class LOG4QT_EXPORT LogStream
{
public:
    LogStream(const Logger &logger, Level level);

    template <typename T> LogStream &operator<<(const T &value);
};

} // namespace Log4Qt

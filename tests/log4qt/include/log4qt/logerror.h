#pragma once

#include "log4qt/log4qt.h"

#include <QString>

namespace Log4Qt {

class LOG4QT_EXPORT LogError
{
public:
    LogError();
    explicit LogError(const QString &message, int code = 0, const QString &symbol = QString(),
        const QString &context = QString());
};

} // namespace Log4Qt

#pragma once

#include "log4qt/log4qt.h"

#include <QString>

namespace Log4Qt {

class LOG4QT_EXPORT PropertyConfigurator
{
public:
    static bool configure(const QString &configFileName);
    static bool configureAndWatch(const QString &configFileName);
};

} // namespace Log4Qt

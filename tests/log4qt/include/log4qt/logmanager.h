#pragma once

#include "log4qt/log4qt.h"

#include <QList>
#include <QString>

namespace Log4Qt {

class LOG4QT_EXPORT LogManager
{
public:
    static Logger *rootLogger();
    static QList<Logger *> loggers();
    static Logger *logger(const QString &name);
    static Logger *qtLogger();
    static void resetConfiguration();
    static void shutdown();

private:
    LogManager();
    virtual ~LogManager();
};

} // namespace Log4Qt

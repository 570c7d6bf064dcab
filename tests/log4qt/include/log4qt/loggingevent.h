#pragma once

#include "log4qt/level.h"

#include <QEvent>
#include <QString>

namespace Log4Qt {

class LOG4QT_EXPORT LoggingEvent : public QEvent
{
public:
    LoggingEvent();
    LoggingEvent(const Logger *logger, Level level, const QString &message);

    Level level() const;
    QString message() const;
    qint64 timeStamp() const;
};

} // namespace Log4Qt

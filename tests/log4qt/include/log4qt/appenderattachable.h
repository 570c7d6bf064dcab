#pragma once

#include "log4qt/appender.h"

#include <QList>

namespace Log4Qt {

class LOG4QT_EXPORT AppenderAttachable
{
public:
    AppenderAttachable();
    virtual ~AppenderAttachable();

    QList<AppenderSharedPtr> appenders() const;
    virtual void addAppender(const AppenderSharedPtr &appender);
    virtual void removeAllAppenders();
    virtual void removeAppender(const AppenderSharedPtr &appender);
    virtual void removeAppender(const QString &name);
};

} // namespace Log4Qt

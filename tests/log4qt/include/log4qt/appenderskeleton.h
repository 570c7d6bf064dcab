#pragma once

#include "log4qt/appender.h"

namespace Log4Qt {

class LOG4QT_EXPORT AppenderSkeleton : public Appender
{
    Q_OBJECT

public:
    AppenderSkeleton(QObject *parent = nullptr);
    ~AppenderSkeleton() override;

    LayoutSharedPtr layout() const override;
    void setLayout(const LayoutSharedPtr &layout) override;
    virtual void activateOptions();
    void close() override;
    void doAppend(const LoggingEvent &event) override;

protected:
    virtual void append(const LoggingEvent &event) = 0;
};

} // namespace Log4Qt

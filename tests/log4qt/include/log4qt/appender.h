#pragma once

#include "log4qt/layout.h"

#include <QObject>
#include <QString>

namespace Log4Qt {

class LOG4QT_EXPORT Appender : public QObject
{
    Q_OBJECT

public:
    Appender(QObject *parent = nullptr);
    ~Appender() override;

    virtual LayoutSharedPtr layout() const = 0;
    virtual bool requiresLayout() const = 0;
    virtual void setLayout(const LayoutSharedPtr &layout) = 0;
    virtual void close() = 0;
    virtual void doAppend(const LoggingEvent &event) = 0;
};

} // namespace Log4Qt

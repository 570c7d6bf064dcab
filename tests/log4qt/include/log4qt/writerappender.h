#pragma once

#include "log4qt/appenderskeleton.h"

namespace Log4Qt {

class LOG4QT_EXPORT WriterAppender : public AppenderSkeleton
{
    Q_OBJECT

public:
    WriterAppender(QObject *parent = nullptr);
    ~WriterAppender() override;

    bool requiresLayout() const override;
    void activateOptions() override;
    void close() override;

protected:
    void append(const LoggingEvent &event) override;
};

} // namespace Log4Qt

#pragma once

#include <log4qt/rollingfileappender.h>

namespace logging {

/// A rolling log file that nobody but its owner can read.
class PrivateFileAppender : public Log4Qt::RollingFileAppender
{
public:
    /// @param path of a file that `makePrivateFile` was given.
    PrivateFileAppender(const Log4Qt::LayoutSharedPtr &layout, const QString &path);

protected:
    void append(const Log4Qt::LoggingEvent &event) override;
};

} // namespace logging

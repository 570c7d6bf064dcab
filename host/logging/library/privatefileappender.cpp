#include "host/logging/library/privatefileappender.h"

#include "host/logging/privatefile.h"

namespace logging {

namespace {

constexpr qint64 maxFileBytes = qint64{1024} * 1024;
constexpr int olderFiles = 4;
constexpr bool goesOn = true;

} // namespace

PrivateFileAppender::PrivateFileAppender(const Log4Qt::LayoutSharedPtr &layout, const QString &path)
    : RollingFileAppender(layout, path, goesOn)
{
    setMaximumFileSize(maxFileBytes);
    setMaxBackupIndex(olderFiles);
}

void PrivateFileAppender::append(const Log4Qt::LoggingEvent &event)
{
    RollingFileAppender::append(event);
    // The library rolls behind the line that made the file too long, and the new file, empty still,
    // takes the process's mask.
    static_cast<void>(makePrivateFile(file()));
}

} // namespace logging

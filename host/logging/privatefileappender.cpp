#include "host/logging/privatefileappender.h"

#include "host/logging/privatefile.h"

#include <QFile>

namespace logging {

namespace {

constexpr long maxFileBytes = 1024L * 1024;
constexpr int olderFiles = 4;

} // namespace

PrivateFileAppender::PrivateFileAppender(const QString &path)
    : RollingFileAppender(QFile::encodeName(path).toStdString(), maxFileBytes, olderFiles)
{ }

PrivateFileAppender::~PrivateFileAppender()
{
    destructorImpl();
}

void PrivateFileAppender::open(std::ios_base::openmode mode)
{
    // Where the file cannot be made the stream fails next, and log4cplus reports it.
    static_cast<void>(makePrivateFile(QString::fromStdString(filename)));
    RollingFileAppender::open(mode);
}

} // namespace logging

#include "host/logging/privatefileappender.h"

#include <QFile>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace logging {

namespace {

constexpr long maxFileBytes = 1024 * 1024;
constexpr int olderFiles = 4;
constexpr mode_t ownerOnly = S_IRUSR | S_IWUSR;

} // namespace

PrivateFileAppender::PrivateFileAppender(const QString &path)
    : RollingFileAppender(QFile::encodeName(path).toStdString(), maxFileBytes, olderFiles)
{ }

PrivateFileAppender::~PrivateFileAppender()
{
    destructorImpl();
}

bool PrivateFileAppender::prepare(const QString &path)
{
    const int file
        = ::open(QFile::encodeName(path).constData(), O_WRONLY | O_CREAT | O_CLOEXEC, ownerOnly);
    if (file < 0)
        return false;
    const bool isPrivate = ::fchmod(file, ownerOnly) == 0;
    ::close(file);
    return isPrivate;
}

void PrivateFileAppender::open(std::ios_base::openmode mode)
{
    // Where the file cannot be made the stream fails next, and log4cplus reports it.
    static_cast<void>(prepare(QString::fromStdString(filename)));
    RollingFileAppender::open(mode);
}

} // namespace logging

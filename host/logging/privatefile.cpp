#include "host/logging/privatefile.h"

#include <QFile>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace logging {

namespace {
constexpr mode_t ownerOnly = S_IRUSR | S_IWUSR;
} // namespace

bool makePrivateFile(const QString &path)
{
    const int file
        = ::open(QFile::encodeName(path).constData(), O_WRONLY | O_CREAT | O_CLOEXEC, ownerOnly);
    if (file < 0)
        return false;
    const bool isPrivate = ::fchmod(file, ownerOnly) == 0;
    ::close(file);
    return isPrivate;
}

} // namespace logging

#include "host/queue/ballast.h"

#include "host/storage/posixfile.h"
#include "host/storage/storageerror.h"

#include <QFile>
#include <QFileInfo>

#include <fcntl.h>

namespace ballast {

bool keep(const QString &fileName, qint64 bytes)
{
    if (bytes <= 0) {
        release(fileName);
        return true;
    }
    if (QFileInfo(fileName).size() >= bytes)
        return true;
    try {
        posix::File file(fileName, O_WRONLY | O_CREAT);
        // Not synced: where a power cut takes it away the next start makes it anew.
        file.reserve(bytes);
        return true;
    } catch (const StorageError &) {
        // What little room there is belongs to the messages.
        release(fileName);
        return false;
    }
}

bool release(const QString &fileName)
{
    return QFileInfo(fileName).size() > 0 && QFile::remove(fileName);
}

} // namespace ballast

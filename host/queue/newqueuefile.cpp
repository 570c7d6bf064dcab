#include "host/queue/newqueuefile.h"

#include "host/queue/queuedatabase.h"
#include "host/queue/queuelayout.h"
#include "host/storage/atomicfile.h"
#include "host/storage/posixfile.h"

#include <QFile>

#include <fcntl.h>

using namespace Qt::Literals::StringLiterals;

namespace newqueuefile {

namespace {

void removeLeftovers(const QString &fileName)
{
    for (const QString &suffix : {u""_s, u"-wal"_s, u"-shm"_s})
        QFile::remove(fileName + suffix);
}

} // namespace

void make(const QString &fileName)
{
    const QString made = fileName + u".new";
    removeLeftovers(made);
    // The database gives those that it makes beside it the same mode.
    posix::File(made, O_RDWR | O_CREAT | O_EXCL).close();
    {
        QueueDatabase database(made);
        queuelayout::bringUp(database);
    }
    atomicfile::move(made, fileName);
}

} // namespace newqueuefile

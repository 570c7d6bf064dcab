#include "fuzz/support/memoryfolder.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

using namespace Qt::Literals::StringLiterals;

namespace fuzz {

namespace {

QString placeForFolders()
{
    const QString inMemory = u"/dev/shm"_s;
    return QFileInfo(inMemory).isWritable() ? inMemory : QDir::tempPath();
}

} // namespace

QString emptyFolder()
{
    static const QTemporaryDir folder(placeForFolders() + u"/korvel-fuzz-XXXXXX"_s);
    QDir(folder.path()).removeRecursively();
    QDir().mkpath(folder.path());
    return folder.path();
}

} // namespace fuzz

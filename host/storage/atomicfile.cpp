#include "host/storage/atomicfile.h"

#include "host/storage/posixfile.h"
#include "host/storage/storageerror.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

using namespace Qt::Literals::StringLiterals;

namespace atomicfile {

namespace {

QString folderOf(const QString &fileName)
{
    return QFileInfo(fileName).absolutePath();
}

// A leftover of a killed process is simply written over.
void writeSynced(const QString &fileName, const QByteArray &contents)
{
    posix::File file(fileName, O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW);
    file.write(contents);
    file.sync();
    file.close();
}

void rename(const QString &from, const QString &to)
{
    if (::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) != 0)
        throw StorageError(tr::Tr(u"fileNotReplaced"_s,
            u"%1: не заменяется: %2; проверьте, доступна ли папка для записи"_s)
                               .arg(to)
                               .arg(posix::lastError()));
}

} // namespace

void write(const QString &fileName, const QByteArray &contents)
{
    const QString temporary = fileName + u".new"_s;
    try {
        writeSynced(temporary, contents);
        rename(temporary, fileName);
    } catch (const StorageError &) {
        QFile::remove(temporary);
        throw;
    }
    posix::syncFolder(folderOf(fileName));
}

void move(const QString &from, const QString &to)
{
    rename(from, to);
    posix::syncFolder(folderOf(to));
}

void makePrivateFolder(const QString &folder)
{
    if (QFileInfo(folder).isDir())
        return;
    // A slash behind the name would make the folder its own one above.
    const QString made = QDir::cleanPath(folder);
    // Each one synced: a folder whose own name is lost takes with it whatever was synced below.
    makePrivateFolder(folderOf(made));
    const bool isMade = ::mkdir(QFile::encodeName(made).constData(), posix::privateFolder) == 0;
    const QString error = isMade ? QString() : posix::lastError();
    // Another program may have been first, and not have synced it yet.
    if (!isMade && !QFileInfo(made).isDir())
        throw StorageError(tr::Tr(
            u"folderNotMade"_s, u"%1: папка не создаётся: %2; создайте её или выберите другую"_s)
                               .arg(folder)
                               .arg(error));
    posix::syncFolder(folderOf(made));
}

void remove(const QString &fileName)
{
    removeUnsynced(fileName);
    posix::syncFolder(folderOf(fileName));
}

void removeUnsynced(const QString &fileName)
{
    if (::unlink(QFile::encodeName(fileName).constData()) != 0 && errno != ENOENT)
        throw StorageError(tr::Tr(
            u"fileNotRemoved"_s, u"%1: не удаляется: %2; проверьте, доступна ли папка для записи"_s)
                               .arg(fileName)
                               .arg(posix::lastError()));
}

} // namespace atomicfile

#include "host/queue/spillfile.h"

#include "host/queue/messagejson.h"
#include "host/storage/posixfile.h"
#include "host/storage/storageerror.h"

#include <QFile>
#include <QFileInfo>

#include <fcntl.h>

#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr std::chrono::seconds lockWaitedFor{2};

// Held as long as the file is open.
void lock(posix::File &file, const QString &fileName)
{
    if (!file.tryLock(lockWaitedFor))
        throw StorageError(tr::Tr(u"fileInUse"_s, u"%1: занят другой программой"_s).arg(fileName));
}

QByteArray contentsOf(const QString &fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        throw StorageError(tr::Tr(u"fileUnreadable"_s,
            u"%1: не читается: %2; проверьте, что он принадлежит пользователю кассы"_s)
                               .arg(fileName)
                               .arg(file.errorString()));
    return file.readAll();
}

void syncFolderOf(const QString &fileName)
{
    posix::syncFolder(QFileInfo(fileName).absolutePath());
}

struct Contents
{
    QList<QueueMessage> messages;
    QByteArrayList unreadable; ///< lines that are no whole message
};

Contents readAll(const QString &fileName)
{
    Contents contents;
    for (const QByteArray &line : contentsOf(fileName).split('\n')) {
        if (line.isEmpty())
            continue;
        if (const auto message = messagejson::read(line))
            contents.messages.append(*message);
        else
            contents.unreadable.append(line + '\n');
    }
    return contents;
}

void keepUnreadable(const QString &fileName, const QByteArray &lines)
{
    const QString aside = fileName + u".unreadable";
    posix::File file(aside, O_WRONLY | O_APPEND | O_CREAT);
    file.write(lines);
    file.sync();
    syncFolderOf(aside);
}

} // namespace

SpillFile::SpillFile(QString fileName)
    : m_fileName(std::move(fileName))
{ }

bool SpillFile::isEmpty() const
{
    return QFileInfo(m_fileName).size() == 0;
}

void SpillFile::append(const QueueMessage &message)
{
    const bool isNew = !QFileInfo::exists(m_fileName);
    posix::File file(m_fileName, O_RDWR | O_APPEND | O_CREAT);
    lock(file, m_fileName);
    const qint64 size = file.size();
    // A line that a killed process did not finish must not swallow this one.
    const bool goesOn = size > 0 && !contentsOf(m_fileName).endsWith('\n');
    try {
        file.write((goesOn ? "\n" : "") + messagejson::line(message));
        file.sync();
    } catch (const StorageError &) {
        file.truncate(size);
        throw;
    }
    if (isNew)
        syncFolderOf(m_fileName);
}

QList<QueueMessage> SpillFile::messages() const
{
    return isEmpty() ? QList<QueueMessage>() : readAll(m_fileName).messages;
}

int SpillFile::takeOver(const std::function<void(const QList<QueueMessage> &)> &take)
{
    if (isEmpty())
        return 0;
    posix::File file(m_fileName, O_RDWR);
    lock(file, m_fileName);
    const Contents contents = readAll(m_fileName);
    take(contents.messages);
    if (!contents.unreadable.isEmpty())
        keepUnreadable(m_fileName, contents.unreadable.join());
    file.truncate(0);
    file.sync();
    return static_cast<int>(contents.unreadable.size());
}

#include "host/storage/filelock.h"

#include "host/storage/posixfile.h"

#include <QCoreApplication>
#include <QFile>

#include <fcntl.h>

#include <utility>

FileLock::FileLock(QString fileName)
    : m_fileName(std::move(fileName))
{ }

FileLock::~FileLock() = default;

bool FileLock::tryLock()
{
    if (m_file)
        return true;
    auto file = std::make_unique<posix::File>(m_fileName, O_RDWR | O_CREAT);
    if (!file->tryLock())
        return false;
    file->truncate();
    file->write(QByteArray::number(QCoreApplication::applicationPid()) + '\n');
    m_file = std::move(file);
    return true;
}

bool FileLock::share(std::chrono::milliseconds wait)
{
    auto file
        = m_file ? std::move(m_file) : std::make_unique<posix::File>(m_fileName, O_RDWR | O_CREAT);
    if (!file->tryShare(wait))
        return false;
    m_file = std::move(file);
    return true;
}

QString FileLock::holder() const
{
    QFile file(m_fileName);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.readAll()).trimmed();
}

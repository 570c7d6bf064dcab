#include "host/storage/filelock.h"

#include "host/storage/posixfile.h"

#include <QCoreApplication>
#include <QFile>

#include <fcntl.h>

#include <thread>

namespace {

// The system has no wait of limited length for this kind of lock.
constexpr std::chrono::milliseconds lookAgainAfter{5};

} // namespace

FileLock::FileLock(const QString &fileName)
    : m_fileName(fileName)
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
    const auto deadline = std::chrono::steady_clock::now() + wait;
    auto file
        = m_file ? std::move(m_file) : std::make_unique<posix::File>(m_fileName, O_RDWR | O_CREAT);
    while (!file->tryShare()) {
        if (std::chrono::steady_clock::now() >= deadline)
            return false;
        std::this_thread::sleep_for(lookAgainAfter);
    }
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

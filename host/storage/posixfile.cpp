#include "host/storage/posixfile.h"

#include "host/storage/storageerror.h"

#include <QFile>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <thread>

using namespace Qt::Literals::StringLiterals;

namespace posix {

namespace {

// The system has no wait of limited length for this kind of lock.
constexpr std::chrono::milliseconds lookAgainAfter{5};

} // namespace

QString lastError()
{
    return QString::fromStdString(std::generic_category().message(errno));
}

File::File(const QString &fileName, int flags)
    : m_fileName(fileName)
    , m_descriptor(::open(QFile::encodeName(fileName).constData(), flags | O_CLOEXEC, privateFile))
{
    if (m_descriptor < 0)
        fail({u"fileNotOpened"_s, u"не открывается"_s});
}

File::~File()
{
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

void File::write(const QByteArray &bytes)
{
    qsizetype written = 0;
    while (written < bytes.size()) {
        const ssize_t count = ::write(m_descriptor, bytes.constData() + written,
            static_cast<std::size_t>(bytes.size() - written));
        if (count < 0 && errno != EINTR)
            fail({u"fileNotWritten"_s, u"не записывается"_s});
        written += qMax(count, ssize_t{0});
    }
}

void File::sync()
{
    if (::fsync(m_descriptor) != 0)
        fail({u"fileNotSynced"_s, u"не сбрасывается на диск"_s});
}

bool File::tryLock()
{
    return takeLock(LOCK_EX, {});
}

bool File::tryLock(std::chrono::milliseconds wait)
{
    return takeLock(LOCK_EX, wait);
}

bool File::tryShare(std::chrono::milliseconds wait)
{
    return takeLock(LOCK_SH, wait);
}

bool File::takeLock(int kind, std::chrono::milliseconds wait)
{
    const auto deadline = std::chrono::steady_clock::now() + wait;
    while (::flock(m_descriptor, kind | LOCK_NB) != 0) {
        if (errno != EWOULDBLOCK)
            fail({u"fileNotLocked"_s, u"не блокируется"_s});
        if (std::chrono::steady_clock::now() >= deadline)
            return false;
        std::this_thread::sleep_for(lookAgainAfter);
    }
    return true;
}

void File::makePrivate()
{
    if (::fchmod(m_descriptor, privateFile) != 0)
        fail({u"fileNotPrivate"_s, u"нельзя закрыть от других пользователей"_s});
}

void File::truncate(qint64 size)
{
    if (::ftruncate(m_descriptor, size) != 0)
        fail({u"fileNotCut"_s, u"не усекается"_s});
}

void File::reserve(qint64 size)
{
    errno = ::posix_fallocate(m_descriptor, 0, size);
    if (errno != 0)
        fail({u"fileNoRoom"_s, u"не хватает места"_s});
}

qint64 File::size() const
{
    struct stat status
    { };
    if (::fstat(m_descriptor, &status) != 0)
        fail({u"fileNotLookedAt"_s, u"недоступен"_s});
    return status.st_size;
}

void File::close()
{
    const int descriptor = m_descriptor;
    m_descriptor = -1;
    if (::close(descriptor) != 0)
        fail({u"fileNotClosed"_s, u"не закрывается"_s});
}

void File::fail(const tr::Tr &what) const
{
    throw StorageError(tr::Tr(u"fileFailed"_s,
        u"%1: %2: %3; проверьте, что папка есть и доступна для записи и что на диске есть место"_s)
                           .arg(m_fileName)
                           .arg(what)
                           .arg(lastError()));
}

void syncFolder(const QString &folder)
{
    File(folder, O_RDONLY | O_DIRECTORY).sync();
}

} // namespace posix

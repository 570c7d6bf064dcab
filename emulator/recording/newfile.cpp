#include "emulator/recording/newfile.h"

#include "emulator/recording/recordingerror.h"

#include <QFile>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

using namespace Qt::Literals::StringLiterals;

namespace emulator {

namespace {

constexpr mode_t ownerOnly = S_IRUSR | S_IWUSR;

[[noreturn]] void fail(const QString &path)
{
    throw RecordingError(u"%1: cannot be written: %2"_s.arg(path, qt_error_string(errno)));
}

/// An open file that is closed with the object.
class Descriptor
{
public:
    explicit Descriptor(int descriptor)
        : m_descriptor(descriptor)
    { }
    ~Descriptor() { ::close(m_descriptor); }
    Q_DISABLE_COPY_MOVE(Descriptor)

    bool isOpen() const { return m_descriptor >= 0; }

    bool write(const QByteArray &bytes) const
    {
        qsizetype written = 0;
        while (written < bytes.size()) {
            const ssize_t count = ::write(m_descriptor, bytes.constData() + written,
                static_cast<std::size_t>(bytes.size() - written));
            if (count < 0 && errno != EINTR)
                return false;
            written += count > 0 ? count : 0;
        }
        return true;
    }

    bool sync() const { return ::fsync(m_descriptor) == 0; }

private:
    const int m_descriptor;
};

} // namespace

void writeNewFile(const QString &path, const QByteArray &bytes)
{
    const QByteArray name = QFile::encodeName(path);
    const QByteArray part = name + ".part";
    const Descriptor file(
        ::open(part.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, ownerOnly));
    if (!file.isOpen())
        fail(path);
    if (!file.write(bytes) || !file.sync() || ::rename(part.constData(), name.constData()) != 0) {
        const int reason = errno;
        ::unlink(part.constData());
        errno = reason;
        fail(path);
    }
}

void syncFolder(const QString &path)
{
    const Descriptor folder(
        ::open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!folder.isOpen() || !folder.sync())
        fail(path);
}

} // namespace emulator

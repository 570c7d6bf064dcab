#include "emulator/recording/recordingfolder.h"

#include "emulator/recording/newfile.h"
#include "emulator/recording/recordingerror.h"

#include <QDir>
#include <QRegularExpression>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

using namespace Qt::Literals::StringLiterals;

namespace emulator {

namespace {

void makeFolder(const QString &path)
{
    if (::mkdir(QFile::encodeName(path).constData(), S_IRWXU) != 0 && errno != EEXIST)
        throw RecordingError(
            u"%1: the folder cannot be made: %2"_s.arg(path, qt_error_string(errno)));
}

// Files of an exchange that was cut off keep their number too.
qint64 greatestNumberIn(const QString &path)
{
    static const QRegularExpression numbered(u"^(\\d+)-"_s);
    qint64 greatest = 0;
    const QStringList names = QDir(path).entryList(QDir::Files | QDir::Hidden);
    for (const QString &name : names)
        greatest = qMax(greatest, numbered.match(name).captured(1).toLongLong());
    return greatest;
}

} // namespace

/// Held as long as the process lives, however it ends.
class RecordingFolder::Lock
{
public:
    explicit Lock(const QString &path)
        : m_folder(::open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
    {
        const bool isUsable = m_folder >= 0
            && ::faccessat(AT_FDCWD, QFile::encodeName(path).constData(), W_OK | X_OK, 0) == 0;
        if (!isUsable)
            throw RecordingError(
                u"%1: the folder cannot be used: %2"_s.arg(path, qt_error_string(errno)));
        if (::flock(m_folder, LOCK_EX | LOCK_NB) != 0)
            throw RecordingError(
                u"%1: another recorder writes to this folder; name another one"_s.arg(path));
    }
    ~Lock() { ::close(m_folder); }
    Q_DISABLE_COPY_MOVE(Lock)

private:
    const int m_folder;
};

RecordingFolder::RecordingFolder(const QString &path)
    : m_path(path)
{
    makeFolder(path);
    m_lock = std::make_unique<Lock>(path);
    m_lastNumber = greatestNumberIn(path);
}

RecordingFolder::~RecordingFolder() = default;

void RecordingFolder::write(const RecordedExchange &exchange) const
{
    const QDir folder(m_path);
    try {
        writeNewFile(folder.filePath(exchange.requestFile()), exchange.request);
        if (exchange.status)
            writeNewFile(folder.filePath(exchange.answerFile()), exchange.answer);
        writeNewFile(folder.filePath(exchange.jsonFile()), toJson(exchange));
        syncFolder(m_path);
    } catch (const RecordingError &) {
        for (const QString &name :
            {exchange.jsonFile(), exchange.answerFile(), exchange.requestFile()})
            QFile::remove(folder.filePath(name));
        throw;
    }
}

} // namespace emulator

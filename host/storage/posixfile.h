#pragma once

#include "host/framework/tr.h"

#include <QByteArray>
#include <QString>

#include <sys/types.h>

#include <chrono>

/// A thin layer over the system's files, for what Qt's do not do: modes from the first moment on,
/// syncing, and the reason of every failure.
namespace posix {

/// Files and folders hold customers' data and credentials: for their owner only.
inline constexpr mode_t privateFile = 0600;
inline constexpr mode_t privateFolder = 0700;

/// An open file that is closed with this object.
class File
{
public:
    /// @param flags as open(2) takes them; the file is never inherited by child processes.
    /// @throws StorageError when it cannot be opened.
    File(const QString &fileName, int flags);
    ~File();
    Q_DISABLE_COPY_MOVE(File)

    /// Writes all bytes, in one call of the system unless that one takes fewer.
    void write(const QByteArray &bytes);
    void sync();
    /// Takes the file's lock without waiting; false when another process has it.
    [[nodiscard]] bool tryLock();
    /// The same, waiting so long at most.
    [[nodiscard]] bool tryLock(std::chrono::milliseconds wait);
    /// Takes a share of the file's lock, waiting so long at most; false when another process has it
    /// alone.
    /// Who had it alone keeps a share.
    [[nodiscard]] bool tryShare(std::chrono::milliseconds wait = {});
    /// Takes other users' rights away from a file that had been there.
    void makePrivate();
    /// Cuts the file off behind that many bytes.
    void truncate(qint64 size = 0);
    /// Makes the file that long with room on the disk for all of it.
    void reserve(qint64 size);
    [[nodiscard]] qint64 size() const;
    /// Closes the file, which reports what earlier writes left unsaid.
    void close();

private:
    [[nodiscard]] bool takeLock(int kind, std::chrono::milliseconds wait);
    [[noreturn]] void fail(const tr::Tr &what) const;

    QString m_fileName;
    int m_descriptor;
};

/// Syncs a folder, so that names made or removed in it outlast a power cut.
/// @throws StorageError when it cannot be synced.
void syncFolder(const QString &folder);

/// Text of the last failure of the system: "No space left on device".
[[nodiscard]] QString lastError();

} // namespace posix

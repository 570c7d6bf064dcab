#pragma once

#include "host/export.h"

#include <QString>

#include <chrono>
#include <memory>

namespace posix {
class File;
}

/// A lock that one process holds on a file as long as this object lives.
///
/// The system releases it when the process ends, however it ends, so a lock file that was left
/// behind locks nothing. The file holds the owner's process id for people.
class POSHOST_EXPORT FileLock
{
public:
    /// @param fileName made where it is missing, readable by its owner only; never removed, since
    ///                 two processes could then lock two files of one name.
    explicit FileLock(QString fileName);
    ~FileLock();
    Q_DISABLE_COPY_MOVE(FileLock)

    /// Takes the lock without waiting. False when another holder has it.
    /// @throws StorageError when the file cannot be opened or written.
    [[nodiscard]] bool tryLock();
    /// Takes a share of the lock, which any number of processes can have as long as none has it
    /// alone; who has it alone gives the rest of it up. Waits so long at most for who has it alone.
    /// False when it was not to be had; this object then holds nothing.
    /// @throws StorageError when the file cannot be opened.
    [[nodiscard]] bool share(std::chrono::milliseconds wait = {});
    /// Process id of the holder as far as the file tells; empty when it does not.
    [[nodiscard]] QString holder() const;

private:
    QString m_fileName;
    std::unique_ptr<posix::File> m_file;
};

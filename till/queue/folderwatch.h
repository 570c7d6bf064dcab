#pragma once

#include "till/queue/stoprequest.h"

#include <QString>

#include <chrono>

namespace till {

/// Waits until something happens in a folder, without looking again and again. For files on a local
/// disk, whose changes the system tells of.
class FolderWatch
{
public:
    /// @param folder is there.
    /// @param stop   not owned; must outlive this.
    /// @throws StorageError when the folder cannot be watched.
    FolderWatch(const QString &folder, const StopRequest &stop);
    ~FolderWatch();
    Q_DISABLE_COPY_MOVE(FolderWatch)

    /// Forgets what has changed so far.
    void forget();
    /// Waits until a file of the folder has been written or made since `forget`, the stop is asked
    /// for, or so much time has gone by.
    /// @return whether something was written or made.
    bool waitForChange(std::chrono::milliseconds atMost) const;
    /// The same, whatever happens in the folder.
    void pause(std::chrono::milliseconds length) const;

private:
    const StopRequest &m_stop;
    int m_descriptor;
};

} // namespace till

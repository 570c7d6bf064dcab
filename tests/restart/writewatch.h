#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <functional>
#include <mutex>
#include <thread>

namespace restart {

/// Counts what is written into folders: a file changed, moved into place or removed. What happens
/// to one file several times in a row counts once, because the system may tell of it once or more
/// often. It can be told to strike at one of the writes to come. Watches on a thread of its own.
class WriteWatch
{
public:
    /// @param folders exist; those below them are not watched.
    /// @throws std::runtime_error when one cannot be watched.
    explicit WriteWatch(const QStringList &folders);
    ~WriteWatch();
    Q_DISABLE_COPY_MOVE(WriteWatch)

    /// How many writes there were since the last call.
    int takeCount();
    /// Orders a strike; it replaces one that was ordered before and has not struck yet.
    /// @param write which of those that follow this call, from 1.
    /// @param kill  ends the till; called once, on any thread, right behind the write. What is
    ///              written meanwhile is not held up.
    void strikeAt(int write, std::function<void()> kill);

private:
    void watch();
    /// Counts what has happened so far. With the lock held.
    void drain();
    /// @param event as the system tells it, with the name of its file.
    void count(const QByteArray &event);

    int m_watched = -1;
    int m_ending = -1; ///< becomes readable when the watch ends
    std::mutex m_mutex;
    QByteArray m_last; ///< event; empty after an order or a look
    int m_count = 0;
    int m_untilStrike = 0; ///< 0: none is ordered
    std::function<void()> m_kill;
    std::thread m_thread;
};

} // namespace restart

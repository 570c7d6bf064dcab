#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <thread>

/// Sees to it that nobody waits long for a server that keeps silent: where a statement is not
/// answered in time, its connection is cut, and the statement fails.
///
/// The server's own limits end what it works at; this one also holds when the server, or the way to
/// it, stands still. One statement at a time, from the thread that made it.
class StatementWatch
{
public:
    using Clock = std::chrono::steady_clock;
    /// How long one statement is waited for.
    static constexpr std::chrono::milliseconds limit{2000};

    /// @param socket of the connection, which must outlive this object.
    explicit StatementWatch(int socket);
    ~StatementWatch();
    StatementWatch(const StatementWatch &) = delete;
    StatementWatch &operator=(const StatementWatch &) = delete;

    /// Watches from being made to being destroyed; nothing without a watch.
    class Statement
    {
    public:
        explicit Statement(StatementWatch *watch)
            : m_watch(watch)
        {
            if (m_watch)
                m_watch->begin();
        }
        ~Statement()
        {
            if (m_watch)
                m_watch->end();
        }
        Statement(const Statement &) = delete;
        Statement &operator=(const Statement &) = delete;

    private:
        StatementWatch *m_watch;
    };

    /// Statements from now on are cut at that time, also when it is sooner than the limit.
    void setDeadline(Clock::time_point deadline) { m_deadline = deadline; }
    void endDeadline() { m_deadline.reset(); }
    /// Whether the connection was cut.
    [[nodiscard]] bool hasCut() const { return m_hasCut; }

private:
    void begin();
    void end();
    void watch(const std::stop_token &stop);

    const int m_socket;
    std::optional<Clock::time_point> m_deadline; ///< of the thread that made it only

    std::mutex m_mutex;
    std::condition_variable_any m_begun;
    std::optional<Clock::time_point> m_cutAt; ///< of the statement under way, by m_mutex
    bool m_isAsleep = false; ///< the watcher waits for the next statement, by m_mutex

    std::atomic<bool> m_hasCut = false;

    std::jthread m_watcher; ///< last, so that it ends before what it uses
};

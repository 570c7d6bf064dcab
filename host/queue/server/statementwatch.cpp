#include "host/queue/server/statementwatch.h"

#include <sys/socket.h>

#include <algorithm>

StatementWatch::StatementWatch(int socket)
    : m_socket(socket)
    , m_watcher([this](const std::stop_token &stop) { watch(stop); })
{ }

StatementWatch::~StatementWatch() = default;

void StatementWatch::begin()
{
    const Clock::time_point usual = Clock::now() + limit;
    const std::lock_guard lock(m_mutex);
    m_cutAt = m_deadline ? std::min(usual, *m_deadline) : usual;
    // Awake, it looks at the time again by itself, and sooner than this one: waking it for every
    // statement would cost more than the statement. A deadline may be sooner.
    if (m_isAsleep || m_deadline)
        m_begun.notify_one();
}

void StatementWatch::end()
{
    const std::lock_guard lock(m_mutex);
    m_cutAt.reset();
}

void StatementWatch::watch(const std::stop_token &stop)
{
    std::unique_lock lock(m_mutex);
    while (!stop.stop_requested()) {
        m_isAsleep = true;
        m_begun.wait(lock, stop, [this] { return m_cutAt.has_value(); });
        m_isAsleep = false;
        while (m_cutAt && !stop.stop_requested()) {
            const Clock::time_point cutAt = *m_cutAt;
            if (cutAt <= Clock::now()) {
                m_hasCut = true;
                ::shutdown(m_socket, SHUT_RDWR);
                m_cutAt.reset();
                break;
            }
            // Until then, or until a statement with a sooner end has begun.
            m_begun.wait_until(
                lock, stop, cutAt, [this, cutAt] { return m_cutAt && *m_cutAt < cutAt; });
        }
    }
}

#include "tests/restart/writewatch.h"

#include <QFile>

#include <poll.h>
#include <sys/eventfd.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <array>
#include <cstring>
#include <stdexcept>
#include <utility>

namespace restart {

namespace {

constexpr std::size_t bufferSize = 65536;
constexpr int forEver = -1;
constexpr std::uint32_t writes = IN_MODIFY | IN_MOVED_TO | IN_DELETE;

} // namespace

WriteWatch::WriteWatch(const QStringList &folders)
    : m_watched(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
    , m_ending(::eventfd(0, EFD_CLOEXEC))
{
    for (const QString &folder : folders)
        if (::inotify_add_watch(m_watched, QFile::encodeName(folder).constData(), writes) < 0)
            throw std::runtime_error("cannot watch " + folder.toStdString());
    m_thread = std::thread([this] { watch(); });
}

WriteWatch::~WriteWatch()
{
    ::eventfd_write(m_ending, 1);
    m_thread.join();
    ::close(m_watched);
    ::close(m_ending);
}

int WriteWatch::takeCount()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    drain();
    m_last.clear();
    return std::exchange(m_count, 0);
}

void WriteWatch::strikeAt(int write, std::function<void()> kill)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    drain();
    m_last.clear();
    m_untilStrike = write;
    m_kill = std::move(kill);
}

void WriteWatch::watch()
{
    std::array<pollfd, 2> waited{{{m_watched, POLLIN, 0}, {m_ending, POLLIN, 0}}};
    while (::poll(waited.data(), waited.size(), forEver) > 0 && waited[1].revents == 0) {
        const std::lock_guard<std::mutex> lock(m_mutex);
        drain();
    }
}

void WriteWatch::drain()
{
    std::array<char, bufferSize> events{};
    for (ssize_t size = 0; (size = ::read(m_watched, events.data(), events.size())) > 0;)
        for (const char *at = events.data(); at < events.data() + size;) {
            inotify_event event{};
            std::memcpy(&event, at, sizeof event);
            const auto length = sizeof event + event.len;
            count({at, static_cast<qsizetype>(length)});
            at += length;
        }
}

void WriteWatch::count(const QByteArray &event)
{
    if (event == m_last)
        return;
    m_last = event;
    ++m_count;
    if (m_untilStrike > 0 && --m_untilStrike == 0)
        m_kill();
}

} // namespace restart

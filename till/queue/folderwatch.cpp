#include "till/queue/folderwatch.h"

#include "host/storage/storageerror.h"

#include <QFile>

#include <poll.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <span>

using namespace Qt::StringLiterals;

namespace till {

namespace {

// Opening and closing a file is no change of it.
constexpr std::uint32_t changes = IN_MODIFY | IN_CREATE | IN_MOVED_TO;

int waitFor(std::span<pollfd> descriptors, std::chrono::milliseconds atMost)
{
    return ::poll(descriptors.data(), descriptors.size(), static_cast<int>(atMost.count()));
}

} // namespace

FolderWatch::FolderWatch(const QString &folder, const StopRequest &stop)
    : m_stop(stop)
    , m_descriptor(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
{
    if (m_descriptor >= 0
        && ::inotify_add_watch(m_descriptor, QFile::encodeName(folder).constData(), changes) >= 0)
        return;
    const QString reason = qt_error_string(errno);
    ::close(m_descriptor);
    throw StorageError(tr::Tr(u"queueFolderNotWatched"_s,
        u"%1: не удаётся следить за папкой (%2); увеличьте "
        u"fs.inotify.max_user_instances и max_user_watches"_s)
                           .arg(folder)
                           .arg(reason));
}

FolderWatch::~FolderWatch()
{
    ::close(m_descriptor);
}

void FolderWatch::forget()
{
    std::array<char, 4096> events = {};
    while (::read(m_descriptor, events.data(), events.size()) > 0) { }
}

bool FolderWatch::waitForChange(std::chrono::milliseconds atMost) const
{
    std::array descriptors{pollfd{m_descriptor, POLLIN, 0}, pollfd{m_stop.descriptor(), POLLIN, 0}};
    waitFor(descriptors, atMost);
    return (descriptors.front().revents & POLLIN) != 0;
}

void FolderWatch::pause(std::chrono::milliseconds length) const
{
    std::array descriptors{pollfd{m_stop.descriptor(), POLLIN, 0}};
    waitFor(descriptors, length);
}

} // namespace till

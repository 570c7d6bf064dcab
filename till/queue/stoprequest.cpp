#include "till/queue/stoprequest.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <system_error>

namespace till {

namespace {

constexpr std::array<int, 3> signalNumbers{SIGTERM, SIGINT, SIGHUP};

std::atomic<int> noted = -1; // the descriptor that the handler writes to

void note(int)
{
    const int before = errno;
    const std::uint64_t one = 1;
    // It fails only when the request was made very often.
    [[maybe_unused]] const auto written = ::write(noted, &one, sizeof one);
    errno = before;
}

void handleBy(void (*handler)(int))
{
    struct sigaction action
    { };
    action.sa_handler = handler;
    // What is being read or written goes on.
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    for (const int number : signalNumbers)
        ::sigaction(number, &action, nullptr);
}

} // namespace

StopRequest::StopRequest()
    : m_descriptor(::eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC))
{
    if (m_descriptor < 0)
        throw std::system_error(errno, std::generic_category(), "eventfd");
    noted = m_descriptor;
    handleBy(note);
}

StopRequest::~StopRequest()
{
    handleBy(SIG_DFL);
    noted = -1;
    ::close(m_descriptor);
}

bool StopRequest::isMade() const
{
    pollfd descriptor{m_descriptor, POLLIN, 0};
    return ::poll(&descriptor, 1, 0) > 0;
}

} // namespace till

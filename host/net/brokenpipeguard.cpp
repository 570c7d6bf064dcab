#include "host/net/brokenpipeguard.h"

#include <pthread.h>

#include <ctime>

namespace {

sigset_t brokenPipe()
{
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGPIPE);
    return signals;
}

} // namespace

BrokenPipeGuard::BrokenPipeGuard()
{
    sigset_t pending;
    sigpending(&pending);
    m_wasPending = sigismember(&pending, SIGPIPE) == 1;
    const sigset_t blocked = brokenPipe();
    pthread_sigmask(SIG_BLOCK, &blocked, &m_former);
}

BrokenPipeGuard::~BrokenPipeGuard()
{
    const sigset_t blocked = brokenPipe();
    constexpr timespec atOnce{0, 0};
    if (!m_wasPending)
        sigtimedwait(&blocked, nullptr, &atOnce);
    pthread_sigmask(SIG_SETMASK, &m_former, nullptr);
}

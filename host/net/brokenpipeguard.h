#pragma once

#include "host/export.h"

#include <QtGlobal>

#include <csignal>

/// Keeps SIGPIPE from the calling thread while it lives. OpenSSL writes to its socket so that a
/// server that has gone would end the program; libcurl only guards against that by changing the
/// whole process, which it is told not to do.
class POSHOST_EXPORT BrokenPipeGuard
{
public:
    BrokenPipeGuard();
    /// Drops what has come meanwhile. To be destroyed on the thread that made it.
    ~BrokenPipeGuard();
    Q_DISABLE_COPY_MOVE(BrokenPipeGuard)

private:
    sigset_t m_former{};
    bool m_wasPending = false;
};

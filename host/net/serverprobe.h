#pragma once

#include "host/export.h"

#include <chrono>
#include <functional>
#include <stop_token>
#include <thread>

/// When to look for a server, and for how long.
struct ProbeSchedule
{
    std::chrono::milliseconds pause; ///< before each attempt behind the first
    std::chrono::steady_clock::time_point end; ///< no attempt behind the first begins later
};

/// Looks whether a server that was lost is back, on a thread of its own: attempts with pauses
/// between them until one succeeds or the schedule ends. Where the first one succeeds there is
/// nothing to look for: the server can be reached all the time, and what fails is something else.
/// Destroying it stops an attempt that is on its way and waits for the thread.
class POSHOST_EXPORT ServerProbe
{
public:
    /// Tries once, on the probe's thread; returns early when asked to stop.
    using Attempt = std::function<bool(const std::stop_token &stop)>;

    /// @param back called at most once, on the probe's thread, after an attempt that succeeded
    /// behind one that did not.
    ServerProbe(const ProbeSchedule &schedule, Attempt attempt, std::function<void()> back);

private:
    std::jthread m_thread;
};

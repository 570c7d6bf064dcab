#pragma once

#include "host/export.h"

#include <chrono>
#include <functional>
#include <stop_token>
#include <thread>

/// When to look for a server, and for how long.
struct ProbeSchedule
{
    std::chrono::milliseconds pause; ///< before each attempt
    std::chrono::steady_clock::time_point end; ///< no attempt begins later
};

/// Looks for a server that was lost, on a thread of its own: attempts with pauses between them
/// until one succeeds or the schedule ends. Destroying it stops an attempt that is on its way and
/// waits for the thread.
class POSHOST_EXPORT ServerProbe
{
public:
    /// Tries once, on the probe's thread; returns early when asked to stop.
    using Attempt = std::function<bool(const std::stop_token &stop)>;

    /// @param reached called at most once, on the probe's thread, after an attempt that succeeded.
    ServerProbe(const ProbeSchedule &schedule, Attempt attempt, std::function<void()> reached);

private:
    std::jthread m_thread;
};

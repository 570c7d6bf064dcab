#include "host/net/serverprobe.h"

#include <condition_variable>
#include <mutex>

namespace {

// False when the wait was cut short by a request to stop.
bool waited(const std::stop_token &stop, std::chrono::milliseconds pause)
{
    std::mutex mutex;
    std::condition_variable_any never;
    std::unique_lock lock(mutex);
    never.wait_for(lock, stop, pause, [] { return false; });
    return !stop.stop_requested();
}

} // namespace

ServerProbe::ServerProbe(const ProbeSchedule &schedule, Attempt attempt, std::function<void()> back)
    : m_thread([schedule, attempt = std::move(attempt), back = std::move(back)](
                   const std::stop_token &stop) {
        bool isLost = !attempt(stop);
        while (isLost && waited(stop, schedule.pause)
            && std::chrono::steady_clock::now() < schedule.end) {
            isLost = !attempt(stop);
            if (!isLost)
                back();
        }
    })
{ }

#include "tests/restart/parallel.h"

#include <algorithm>
#include <atomic>
#include <mutex>
#include <thread>
#include <vector>

namespace restart {

void inParallel(std::size_t count, const std::function<void(std::size_t)> &work,
    const std::function<void(std::size_t)> &done)
{
    std::atomic<std::size_t> next = 0;
    std::mutex mutex;
    std::size_t finished = 0;
    const auto takeWork = [&] {
        for (std::size_t one = next++; one < count; one = next++) {
            work(one);
            const std::lock_guard<std::mutex> lock(mutex);
            done(++finished);
        }
    };
    std::vector<std::thread> threads;
    for (unsigned thread = 0; thread < std::max(std::thread::hardware_concurrency(), 1U); ++thread)
        threads.emplace_back(takeWork);
    for (std::thread &thread : threads)
        thread.join();
}

} // namespace restart

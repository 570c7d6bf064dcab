// How long an exchange takes, by a clock that cannot be set and without the time for which other
// programs had the processors.

#include "tests/faults/machine/real.h"

#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <memory>
#include <thread>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::seconds patience{2};

// For how long this thread could have run and was not let; 0 on a system that does not count it.
std::chrono::nanoseconds timeKeptWaiting()
{
    std::FILE *const file = std::fopen("/proc/thread-self/schedstat", "re");
    if (file == nullptr)
        return {};
    long long running = 0;
    long long waiting = 0;
    const bool isRead = std::fscanf(file, "%lld %lld", &running, &waiting) == 2;
    std::fclose(file);
    return std::chrono::nanoseconds(isRead ? waiting : 0);
}

bool isSpoilt(const char *how)
{
    const char *const named = std::getenv(faults::spoilVariable);
    return named != nullptr && std::strcmp(named, how) == 0;
}

// Never given back, on purpose.
void keepMemory()
{
    constexpr std::size_t kept = 4096;
    static std::vector<std::unique_ptr<std::array<char, kept>>> all;
    all.push_back(std::make_unique<std::array<char, kept>>());
}

// Not at each exchange: a process may only have so many.
void keepDescriptor()
{
    constexpr int spared = 50;
    static int exchanges = 0;
    if (++exchanges % spared == 0)
        static_cast<void>(::dup(STDERR_FILENO));
}

void note(std::chrono::nanoseconds duration)
{
    faults::MachineControl &control = faults::control();
    const auto taken = std::chrono::duration_cast<std::chrono::microseconds>(duration).count();
    // One exchange at a time: nobody else writes here.
    if (taken > control.longestMicroseconds)
        control.longestMicroseconds = taken;
    ++control.exchanges;
}

} // namespace

extern "C" int curl_easy_perform(void *handle)
{
    static auto *const original = faults::real<int(void *)>("curl_easy_perform");
    const auto waited = timeKeptWaiting();
    const auto begun = Clock::now();
    int result = original(handle);
    if (result != 0 && isSpoilt(faults::spoilRetry))
        result = original(handle);
    if (isSpoilt(faults::spoilPatience))
        std::this_thread::sleep_for(patience);
    if (isSpoilt(faults::spoilMemory))
        keepMemory();
    if (isSpoilt(faults::spoilDescriptors))
        keepDescriptor();
    note(Clock::now() - begun - (timeKeptWaiting() - waited));
    return result;
}

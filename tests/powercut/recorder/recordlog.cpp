#include "tests/powercut/recorder/recordlog.h"

#include "tests/powercut/recorder/real.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <string>

namespace recorder {

namespace {

// Out of the way of the descriptors that the process opens and counts on.
constexpr int lowestDescriptor = 500;

int takeStandardOutput()
{
    const int taken
        = real<int(int, int, ...)>("fcntl64")(STDOUT_FILENO, F_DUPFD_CLOEXEC, lowestDescriptor);
    real<int(int, int)>("dup2")(STDERR_FILENO, STDOUT_FILENO);
    return taken;
}

int descriptor()
{
    static const int taken = takeStandardOutput();
    return taken;
}

void writeAll(std::string_view bytes)
{
    static auto *const write = real<ssize_t(int, const void *, size_t)>("write");
    while (!bytes.empty()) {
        const ssize_t count = write(descriptor(), bytes.data(), bytes.size());
        if (count < 0 && errno != EINTR)
            std::abort();
        bytes.remove_prefix(count < 0 ? 0 : static_cast<std::size_t>(count));
    }
}

// Before anything is printed.
[[maybe_unused]] const int takenAtStart = descriptor();

} // namespace

std::mutex &mutex()
{
    static std::mutex one;
    return one;
}

void append(const char *kind, int opening, long long number, std::string_view payload)
{
    const int before = errno;
    std::string head = kind;
    for (const long long field :
        {static_cast<long long>(opening), number, static_cast<long long>(payload.size())})
        head += ' ' + std::to_string(field);
    writeAll(head + '\n');
    writeAll(payload);
    writeAll("\n");
    errno = before;
}

} // namespace recorder

/// Lets the process say what it knows: that an operation has returned.
extern "C" __attribute__((visibility("default"))) void recorder_mark(const char *text)
{
    const std::lock_guard<std::mutex> lock(recorder::mutex());
    recorder::append("marker", 0, 0, text);
}

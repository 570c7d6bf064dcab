// The calls that open and close files.

#include "tests/powercut/recorder/openings.h"
#include "tests/powercut/recorder/real.h"
#include "tests/powercut/recorder/recordlog.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdarg>

namespace {

using OpenAt = int(int, const char *, int, ...);

// The mode counts only where a file may be made, but may always be passed on.
mode_t modeFrom(va_list arguments, int flags)
{
    const bool isGiven = (flags & (O_CREAT | O_TMPFILE)) != 0;
    return isGiven ? static_cast<mode_t>(va_arg(arguments, unsigned)) : 0;
}

int openRecorded(int folder, const char *path, int flags, mode_t mode)
{
    static auto *const openat = recorder::real<OpenAt>("openat64");
    const std::lock_guard<std::mutex> lock(recorder::mutex());
    const int descriptor = openat(folder, path, flags, mode);
    if (descriptor >= 0)
        recorder::opened(descriptor, folder, path, flags);
    return descriptor;
}

int copyRecorded(int copy, int from)
{
    if (copy >= 0)
        recorder::copied(copy, from);
    return copy;
}

} // namespace

extern "C" {

int open(const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeFrom(arguments, flags);
    va_end(arguments);
    return openRecorded(AT_FDCWD, path, flags, mode);
}

int open64(const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeFrom(arguments, flags);
    va_end(arguments);
    return openRecorded(AT_FDCWD, path, flags, mode);
}

int openat(int folder, const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeFrom(arguments, flags);
    va_end(arguments);
    return openRecorded(folder, path, flags, mode);
}

int openat64(int folder, const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeFrom(arguments, flags);
    va_end(arguments);
    return openRecorded(folder, path, flags, mode);
}

// What programs that are built with the library's own checks call.
int __open_2(const char *path, int flags)
{
    return openRecorded(AT_FDCWD, path, flags, 0);
}

int __open64_2(const char *path, int flags)
{
    return openRecorded(AT_FDCWD, path, flags, 0);
}

int __openat_2(int folder, const char *path, int flags)
{
    return openRecorded(folder, path, flags, 0);
}

int __openat64_2(int folder, const char *path, int flags)
{
    return openRecorded(folder, path, flags, 0);
}

int creat(const char *path, mode_t mode)
{
    return openRecorded(AT_FDCWD, path, O_CREAT | O_WRONLY | O_TRUNC, mode);
}

int creat64(const char *path, mode_t mode)
{
    return openRecorded(AT_FDCWD, path, O_CREAT | O_WRONLY | O_TRUNC, mode);
}

int close(int descriptor)
{
    static auto *const close = recorder::real<int(int)>("close");
    const std::lock_guard<std::mutex> lock(recorder::mutex());
    recorder::closed(descriptor);
    return close(descriptor);
}

int dup(int descriptor) noexcept
{
    static auto *const dup = recorder::real<int(int)>("dup");
    const std::lock_guard<std::mutex> lock(recorder::mutex());
    return copyRecorded(dup(descriptor), descriptor);
}

int dup2(int descriptor, int copy) noexcept
{
    static auto *const dup2 = recorder::real<int(int, int)>("dup2");
    const std::lock_guard<std::mutex> lock(recorder::mutex());
    return copyRecorded(dup2(descriptor, copy), descriptor);
}

int dup3(int descriptor, int copy, int flags) noexcept
{
    static auto *const dup3 = recorder::real<int(int, int, int)>("dup3");
    const std::lock_guard<std::mutex> lock(recorder::mutex());
    return copyRecorded(dup3(descriptor, copy, flags), descriptor);
}

int fcntl(int descriptor, int command, ...)
{
    static auto *const fcntl = recorder::real<int(int, int, ...)>("fcntl64");
    va_list arguments;
    va_start(arguments, command);
    void *const argument = va_arg(arguments, void *);
    va_end(arguments);
    const bool copies = command == F_DUPFD || command == F_DUPFD_CLOEXEC;
    // Waiting for a lock must not hold up the others.
    if (!copies)
        return fcntl(descriptor, command, argument);
    const std::lock_guard<std::mutex> lock(recorder::mutex());
    return copyRecorded(fcntl(descriptor, command, argument), descriptor);
}

int fcntl64(int descriptor, int command, ...)
{
    va_list arguments;
    va_start(arguments, command);
    void *const argument = va_arg(arguments, void *);
    va_end(arguments);
    return fcntl(descriptor, command, argument);
}

} // extern "C"

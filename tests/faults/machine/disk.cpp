// The calls that write below the till's state folder, in front of a disk that has ordered faults.

#include "tests/faults/machine/place.h"
#include "tests/faults/machine/real.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstdarg>
#include <cstdio>
#include <string>
#include <string_view>
#include <thread>

namespace {

using faults::DiskState;
using faults::isBelow;

// What a flush takes on a disk that is about to fail.
constexpr std::chrono::milliseconds slowFlush{100};

DiskState disk()
{
    return faults::control().disk;
}

template <typename Place> bool isFaulty(const Place &place)
{
    return disk() != DiskState::Sound && isBelow(place);
}

bool fail(int reason)
{
    ++faults::control().met;
    errno = reason;
    return true;
}

// Whether a call that changes something fails whatever it needs.
bool changeFails()
{
    if (disk() == DiskState::Gone)
        return fail(EIO);
    return disk() == DiskState::ReadOnly && fail(EROFS);
}

off64_t sizeOf(int descriptor)
{
    struct stat64 status
    { };
    return ::fstat64(descriptor, &status) == 0 ? status.st_size : 0;
}

off64_t sizeOf(const char *path)
{
    struct stat64 status
    { };
    return ::stat64(path, &status) == 0 ? status.st_size : 0;
}

bool hasNoRoomFor(off64_t growth)
{
    if (disk() != DiskState::Full || growth <= 0)
        return false;
    if (growth > faults::control().room)
        return fail(ENOSPC);
    faults::control().room -= growth;
    return false;
}

void giveUp(off64_t size)
{
    if (disk() == DiskState::Full)
        faults::control().room += size;
}

bool growthFails(int descriptor, off64_t end)
{
    return isFaulty(descriptor) && (changeFails() || hasNoRoomFor(end - sizeOf(descriptor)));
}

int openFile(const char *path, int flags, mode_t mode)
{
    static auto *const original = faults::real<int(const char *, int, ...)>("open64");
    const bool changes = (flags & (O_WRONLY | O_RDWR | O_CREAT | O_TRUNC)) != 0;
    if (isFaulty(std::string_view(path))) {
        if (disk() == DiskState::Gone && fail(EIO))
            return -1;
        if (changes && changeFails())
            return -1;
        if ((flags & O_TRUNC) != 0)
            giveUp(sizeOf(path));
    }
    return original(path, flags, mode);
}

int flush(int descriptor, const char *name)
{
    if (isFaulty(descriptor)) {
        if (disk() == DiskState::Gone && fail(EIO))
            return -1;
        if (disk() == DiskState::Slow) {
            ++faults::control().met;
            std::this_thread::sleep_for(slowFlush);
        }
    }
    return faults::real<int(int)>(name)(descriptor);
}

mode_t modeFrom(va_list arguments, int flags)
{
    const bool isGiven = (flags & (O_CREAT | O_TMPFILE)) != 0;
    return isGiven ? static_cast<mode_t>(va_arg(arguments, unsigned)) : 0;
}

} // namespace

extern "C" {

int open(const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeFrom(arguments, flags);
    va_end(arguments);
    return openFile(path, flags, mode);
}

int open64(const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeFrom(arguments, flags);
    va_end(arguments);
    return openFile(path, flags, mode);
}

ssize_t write(int descriptor, const void *bytes, size_t size)
{
    static auto *const original = faults::real<ssize_t(int, const void *, size_t)>("write");
    if (disk() != DiskState::Sound) {
        const bool appends = (::fcntl(descriptor, F_GETFL) & O_APPEND) != 0;
        const off64_t from = appends ? sizeOf(descriptor) : ::lseek64(descriptor, 0, SEEK_CUR);
        if (growthFails(descriptor, from + static_cast<off64_t>(size)))
            return -1;
    }
    return original(descriptor, bytes, size);
}

ssize_t pwrite64(int descriptor, const void *bytes, size_t size, off64_t offset)
{
    static auto *const original
        = faults::real<ssize_t(int, const void *, size_t, off64_t)>("pwrite64");
    if (growthFails(descriptor, offset + static_cast<off64_t>(size)))
        return -1;
    return original(descriptor, bytes, size, offset);
}

ssize_t pwrite(int descriptor, const void *bytes, size_t size, off_t offset)
{
    return pwrite64(descriptor, bytes, size, offset);
}

ssize_t pread64(int descriptor, void *bytes, size_t size, off64_t offset)
{
    static auto *const original = faults::real<ssize_t(int, void *, size_t, off64_t)>("pread64");
    if (disk() == DiskState::Gone && isBelow(descriptor) && fail(EIO))
        return -1;
    return original(descriptor, bytes, size, offset);
}

ssize_t pread(int descriptor, void *bytes, size_t size, off_t offset)
{
    return pread64(descriptor, bytes, size, offset);
}

ssize_t read(int descriptor, void *bytes, size_t size)
{
    static auto *const original = faults::real<ssize_t(int, void *, size_t)>("read");
    if (disk() == DiskState::Gone && isBelow(descriptor) && fail(EIO))
        return -1;
    return original(descriptor, bytes, size);
}

int ftruncate64(int descriptor, off64_t size) noexcept
{
    static auto *const original = faults::real<int(int, off64_t)>("ftruncate64");
    if (growthFails(descriptor, size))
        return -1;
    if (isFaulty(descriptor))
        giveUp(std::max<off64_t>(0, sizeOf(descriptor) - size));
    return original(descriptor, size);
}

int ftruncate(int descriptor, off_t size) noexcept
{
    return ftruncate64(descriptor, size);
}

int posix_fallocate64(int descriptor, off64_t offset, off64_t size)
{
    static auto *const original = faults::real<int(int, off64_t, off64_t)>("posix_fallocate64");
    return growthFails(descriptor, offset + size) ? errno : original(descriptor, offset, size);
}

int posix_fallocate(int descriptor, off_t offset, off_t size)
{
    return posix_fallocate64(descriptor, offset, size);
}

int fsync(int descriptor)
{
    return flush(descriptor, "fsync");
}

int fdatasync(int descriptor)
{
    return flush(descriptor, "fdatasync");
}

int rename(const char *from, const char *to) noexcept
{
    static auto *const original = faults::real<int(const char *, const char *)>("rename");
    if (isFaulty(std::string_view(to))) {
        if (changeFails())
            return -1;
        giveUp(sizeOf(to));
    }
    return original(from, to);
}

int unlink(const char *path) noexcept
{
    static auto *const original = faults::real<int(const char *)>("unlink");
    if (isFaulty(std::string_view(path))) {
        if (changeFails())
            return -1;
        giveUp(sizeOf(path));
    }
    return original(path);
}

int mkdir(const char *path, mode_t mode) noexcept
{
    static auto *const original = faults::real<int(const char *, mode_t)>("mkdir");
    // A folder needs room too; how much matters to nobody.
    if (isFaulty(std::string_view(path)) && (changeFails() || hasNoRoomFor(1)))
        return -1;
    return original(path, mode);
}

} // extern "C"

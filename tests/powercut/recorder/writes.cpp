// The calls that change what is in a file.

#include "tests/powercut/recorder/openings.h"
#include "tests/powercut/recorder/real.h"
#include "tests/powercut/recorder/recordlog.h"

#include <fcntl.h>
#include <sys/sendfile.h>
#include <sys/uio.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <string_view>

namespace {

// Where a call has left the position of its descriptor, also one that only appends.
off64_t positionOf(int descriptor)
{
    return ::lseek64(descriptor, 0, SEEK_CUR);
}

void record(int descriptor, off64_t offset, std::string_view bytes)
{
    if (const auto opening = recorder::openingOf(descriptor))
        recorder::append("write", opening->number, offset, bytes);
}

std::string joined(const iovec *parts, int count, ssize_t written)
{
    std::string bytes;
    for (int part = 0; part < count; ++part)
        bytes.append(static_cast<const char *>(parts[part].iov_base), parts[part].iov_len);
    bytes.resize(static_cast<std::size_t>(written));
    return bytes;
}

// What a call has put into a file without showing it to the process.
std::string readBack(int descriptor, off64_t offset, ssize_t size)
{
    static auto *const open = recorder::real<int(const char *, int, ...)>("open64");
    static auto *const close = recorder::real<int(int)>("close");
    const std::string name = "/proc/self/fd/" + std::to_string(descriptor);
    const int reader = open(name.c_str(), O_RDONLY | O_CLOEXEC);
    std::string bytes(static_cast<std::size_t>(size), '\0');
    if (::pread64(reader, bytes.data(), bytes.size(), offset) != size)
        std::abort();
    close(reader);
    return bytes;
}

ssize_t recordCopied(int descriptor, off64_t end, ssize_t written)
{
    if (written > 0 && recorder::openingOf(descriptor))
        record(descriptor, end - written, readBack(descriptor, end - written, written));
    return written;
}

ssize_t writeAt(int descriptor, const void *bytes, size_t size, off64_t offset)
{
    static auto *const pwrite
        = recorder::real<ssize_t(int, const void *, size_t, off64_t)>("pwrite64");
    const std::lock_guard<std::mutex> lock(recorder::mutex());
    const ssize_t written = pwrite(descriptor, bytes, size, offset);
    if (written > 0)
        record(descriptor, offset,
            {static_cast<const char *>(bytes), static_cast<std::size_t>(written)});
    return written;
}

ssize_t writePartsAt(int descriptor, const iovec *parts, int count, off64_t offset)
{
    static auto *const pwritev
        = recorder::real<ssize_t(int, const iovec *, int, off64_t)>("pwritev64");
    const std::lock_guard<std::mutex> lock(recorder::mutex());
    const ssize_t written = pwritev(descriptor, parts, count, offset);
    if (written > 0)
        record(descriptor, offset, joined(parts, count, written));
    return written;
}

int cut(int descriptor, off64_t size)
{
    static auto *const ftruncate = recorder::real<int(int, off64_t)>("ftruncate64");
    const std::lock_guard<std::mutex> lock(recorder::mutex());
    const int failed = ftruncate(descriptor, size);
    if (const auto opening = recorder::openingOf(descriptor); failed == 0 && opening)
        recorder::append("cut", opening->number, size, {});
    return failed;
}

int cutNamed(const char *path, off64_t size)
{
    const int descriptor = ::open64(path, O_WRONLY | O_CLOEXEC);
    if (descriptor < 0)
        return descriptor;
    const int failed = cut(descriptor, size);
    const int reason = errno;
    ::close(descriptor);
    errno = reason;
    return failed;
}

int reserve(int descriptor, int mode, off64_t offset, off64_t size)
{
    static auto *const fallocate = recorder::real<int(int, int, off64_t, off64_t)>("fallocate64");
    const std::lock_guard<std::mutex> lock(recorder::mutex());
    const int failed = fallocate(descriptor, mode, offset, size);
    if (const auto opening = recorder::openingOf(descriptor); failed == 0 && opening)
        recorder::append(mode == 0 ? "reserve" : "other", opening->number, offset + size, {});
    return failed;
}

int reserveOrReason(int descriptor, off64_t offset, off64_t size)
{
    const int before = errno;
    const int reason = reserve(descriptor, 0, offset, size) == 0 ? 0 : errno;
    errno = before;
    return reason;
}

} // namespace

extern "C" {

ssize_t write(int descriptor, const void *bytes, size_t size)
{
    static auto *const write = recorder::real<ssize_t(int, const void *, size_t)>("write");
    // Pipes and sockets may block, and hold up nobody.
    if (std::unique_lock<std::mutex> lock(recorder::mutex()); !recorder::openingOf(descriptor)) {
        lock.unlock();
        return write(descriptor, bytes, size);
    }
    const std::lock_guard<std::mutex> lock(recorder::mutex());
    const ssize_t written = write(descriptor, bytes, size);
    if (written > 0)
        record(descriptor, positionOf(descriptor) - written,
            {static_cast<const char *>(bytes), static_cast<std::size_t>(written)});
    return written;
}

ssize_t writev(int descriptor, const iovec *parts, int count)
{
    static auto *const writev = recorder::real<ssize_t(int, const iovec *, int)>("writev");
    if (std::unique_lock<std::mutex> lock(recorder::mutex()); !recorder::openingOf(descriptor)) {
        lock.unlock();
        return writev(descriptor, parts, count);
    }
    const std::lock_guard<std::mutex> lock(recorder::mutex());
    const ssize_t written = writev(descriptor, parts, count);
    if (written > 0)
        record(descriptor, positionOf(descriptor) - written, joined(parts, count, written));
    return written;
}

ssize_t pwrite(int descriptor, const void *bytes, size_t size, off_t offset)
{
    return writeAt(descriptor, bytes, size, offset);
}

ssize_t pwrite64(int descriptor, const void *bytes, size_t size, off64_t offset)
{
    return writeAt(descriptor, bytes, size, offset);
}

ssize_t pwritev(int descriptor, const iovec *parts, int count, off_t offset)
{
    return writePartsAt(descriptor, parts, count, offset);
}

ssize_t pwritev64(int descriptor, const iovec *parts, int count, off64_t offset)
{
    return writePartsAt(descriptor, parts, count, offset);
}

ssize_t sendfile(int to, int from, off_t *offset, size_t size) noexcept
{
    static auto *const sendfile
        = recorder::real<ssize_t(int, int, off64_t *, size_t)>("sendfile64");
    const std::lock_guard<std::mutex> lock(recorder::mutex());
    const ssize_t written = sendfile(to, from, offset, size);
    return recordCopied(to, positionOf(to), written);
}

ssize_t sendfile64(int to, int from, off64_t *offset, size_t size) noexcept
{
    return sendfile(to, from, offset, size);
}

ssize_t copy_file_range(
    int from, off64_t *offsetFrom, int to, off64_t *offsetTo, size_t size, unsigned flags)
{
    static auto *const copy
        = recorder::real<ssize_t(int, off64_t *, int, off64_t *, size_t, unsigned)>(
            "copy_file_range");
    const std::lock_guard<std::mutex> lock(recorder::mutex());
    const ssize_t written = copy(from, offsetFrom, to, offsetTo, size, flags);
    return recordCopied(to, offsetTo == nullptr ? positionOf(to) : *offsetTo, written);
}

int ftruncate(int descriptor, off_t size) noexcept
{
    return cut(descriptor, size);
}

int ftruncate64(int descriptor, off64_t size) noexcept
{
    return cut(descriptor, size);
}

int truncate(const char *path, off_t size) noexcept
{
    return cutNamed(path, size);
}

int truncate64(const char *path, off64_t size) noexcept
{
    return cutNamed(path, size);
}

int fallocate(int descriptor, int mode, off_t offset, off_t size)
{
    return reserve(descriptor, mode, offset, size);
}

int fallocate64(int descriptor, int mode, off64_t offset, off64_t size)
{
    return reserve(descriptor, mode, offset, size);
}

int posix_fallocate(int descriptor, off_t offset, off_t size)
{
    return reserveOrReason(descriptor, offset, size);
}

int posix_fallocate64(int descriptor, off64_t offset, off64_t size)
{
    return reserveOrReason(descriptor, offset, size);
}

} // extern "C"

// The calls that give files and folders names and take them away.

#include "tests/powercut/recorder/openings.h"
#include "tests/powercut/recorder/real.h"
#include "tests/powercut/recorder/recordlog.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <string>

namespace {

// A name that comes from elsewhere, or goes there, is something that a replay cannot know of.
void recordMove(const char *kind, int folder, const char *path, int toFolder, const char *to)
{
    const int before = errno;
    const auto from = recorder::recordedPath(folder, path);
    const auto target = recorder::recordedPath(toFolder, to);
    if (from && target)
        recorder::append(kind, 0, 0, *from + '\0' + *target);
    else if (from || target)
        recorder::append("other", 0, 0, from ? *from : *target);
    errno = before;
}

void recordName(const char *kind, int folder, const char *path)
{
    const int before = errno;
    if (const auto name = recorder::recordedPath(folder, path))
        recorder::append(kind, 0, 0, *name);
    errno = before;
}

int move(int folder, const char *path, int toFolder, const char *to, unsigned flags)
{
    static auto *const renameat2
        = recorder::real<int(int, const char *, int, const char *, unsigned)>("renameat2");
    const std::lock_guard<std::mutex> lock(recorder::mutex());
    const int failed = renameat2(folder, path, toFolder, to, flags);
    const bool isPlain = (flags & ~static_cast<unsigned>(RENAME_NOREPLACE)) == 0;
    if (failed == 0)
        recordMove(isPlain ? "rename" : "other", folder, path, toFolder, to);
    return failed;
}

int addName(int folder, const char *path, int toFolder, const char *to, int flags)
{
    static auto *const linkat
        = recorder::real<int(int, const char *, int, const char *, int)>("linkat");
    const std::lock_guard<std::mutex> lock(recorder::mutex());
    const int failed = linkat(folder, path, toFolder, to, flags);
    if (failed == 0)
        recordMove("link", folder, path, toFolder, to);
    return failed;
}

int removeName(int folder, const char *path, int flags)
{
    static auto *const unlinkat = recorder::real<int(int, const char *, int)>("unlinkat");
    const std::lock_guard<std::mutex> lock(recorder::mutex());
    const int failed = unlinkat(folder, path, flags);
    if (failed == 0)
        recordName("unlink", folder, path);
    return failed;
}

int makeFolder(int folder, const char *path, mode_t mode)
{
    static auto *const mkdirat = recorder::real<int(int, const char *, mode_t)>("mkdirat");
    const std::lock_guard<std::mutex> lock(recorder::mutex());
    const int failed = mkdirat(folder, path, mode);
    if (failed == 0)
        recordName("mkdir", folder, path);
    return failed;
}

} // namespace

extern "C" {

int rename(const char *path, const char *to) noexcept
{
    return move(AT_FDCWD, path, AT_FDCWD, to, 0);
}

int renameat(int folder, const char *path, int toFolder, const char *to) noexcept
{
    return move(folder, path, toFolder, to, 0);
}

int renameat2(int folder, const char *path, int toFolder, const char *to, unsigned flags) noexcept
{
    return move(folder, path, toFolder, to, flags);
}

int link(const char *path, const char *to) noexcept
{
    return addName(AT_FDCWD, path, AT_FDCWD, to, 0);
}

int linkat(int folder, const char *path, int toFolder, const char *to, int flags) noexcept
{
    return addName(folder, path, toFolder, to, flags);
}

int unlink(const char *path) noexcept
{
    return removeName(AT_FDCWD, path, 0);
}

int unlinkat(int folder, const char *path, int flags) noexcept
{
    return removeName(folder, path, flags);
}

int rmdir(const char *path) noexcept
{
    return removeName(AT_FDCWD, path, AT_REMOVEDIR);
}

int remove(const char *path) noexcept
{
    const int failed = removeName(AT_FDCWD, path, 0);
    return failed != 0 && errno == EISDIR ? removeName(AT_FDCWD, path, AT_REMOVEDIR) : failed;
}

int mkdir(const char *path, mode_t mode) noexcept
{
    return makeFolder(AT_FDCWD, path, mode);
}

int mkdirat(int folder, const char *path, mode_t mode) noexcept
{
    return makeFolder(folder, path, mode);
}

} // extern "C"

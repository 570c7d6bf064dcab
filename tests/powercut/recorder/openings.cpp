#include "tests/powercut/recorder/openings.h"

#include "tests/powercut/recorder/recordlog.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <map>

namespace recorder {

namespace {

namespace filesystem = std::filesystem;

// Made on first use: libraries that are loaded before this one open files too.
std::map<int, Opening> &openings()
{
    static std::map<int, Opening> all;
    return all;
}

const std::string &recordedFolder()
{
    static const char *const named = std::getenv("RECORDED_FOLDER");
    static const std::string folder = named == nullptr ? "" : named;
    return folder;
}

filesystem::path startOf(int folder)
{
    if (folder == AT_FDCWD)
        return filesystem::current_path();
    return filesystem::read_symlink("/proc/self/fd/" + std::to_string(folder));
}

bool isFolder(int descriptor)
{
    struct stat status
    { };
    return ::fstat(descriptor, &status) == 0 && S_ISDIR(status.st_mode);
}

bool isOpenStill(int number)
{
    return std::any_of(openings().cbegin(), openings().cend(),
        [number](const auto &entry) { return entry.second.number == number; });
}

} // namespace

std::optional<std::string> recordedPath(int folder, const char *path)
{
    const std::string &recorded = recordedFolder();
    if (recorded.empty())
        return {};
    const filesystem::path given(path);
    const std::string whole
        = (given.is_absolute() ? given : startOf(folder) / given).lexically_normal().string();
    if (whole == recorded || whole == recorded + '/')
        return "";
    if (whole.rfind(recorded + '/', 0) != 0)
        return {};
    const std::string below = whole.substr(recorded.size() + 1);
    return below.substr(0, below.find_last_not_of('/') + 1);
}

void opened(int descriptor, int folder, const char *path, int flags)
{
    static int given = 0;
    const int before = errno;
    closed(descriptor);
    if (const auto recorded = recordedPath(folder, path)) {
        openings()[descriptor] = {++given, *recorded, isFolder(descriptor)};
        append("open", given, flags, *recorded);
    }
    errno = before;
}

void copied(int descriptor, int from)
{
    if (descriptor == from)
        return;
    closed(descriptor);
    if (const auto opening = openingOf(from))
        openings()[descriptor] = *opening;
}

void closed(int descriptor)
{
    const auto found = openings().find(descriptor);
    if (found == openings().end())
        return;
    const int number = found->second.number;
    openings().erase(found);
    if (!isOpenStill(number))
        append("close", number, 0, {});
}

std::optional<Opening> openingOf(int descriptor)
{
    const auto found = openings().find(descriptor);
    return found == openings().end() ? std::nullopt : std::optional(found->second);
}

} // namespace recorder

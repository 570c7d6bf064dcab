#include "tests/faults/machine/place.h"

#include "tests/faults/machine/control.h"

#include <unistd.h>

#include <array>
#include <climits>
#include <cstdlib>
#include <string>

namespace faults {

bool isBelow(std::string_view path)
{
    static const char *const named = std::getenv(folderVariable);
    // Not a text of its own: files are still written when those are gone.
    static const std::string_view folder = named == nullptr ? "" : named;
    return !folder.empty() && path.substr(0, folder.size()) == folder
        && (path.size() == folder.size() || path[folder.size()] == '/');
}

bool isBelow(int descriptor)
{
    std::array<char, PATH_MAX> path{};
    const std::string link = "/proc/self/fd/" + std::to_string(descriptor);
    const ssize_t length = ::readlink(link.c_str(), path.data(), path.size());
    return length > 0 && isBelow(std::string_view(path.data(), static_cast<std::size_t>(length)));
}

} // namespace faults

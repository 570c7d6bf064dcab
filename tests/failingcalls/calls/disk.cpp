// Calls that write below the till's state folder.

#include "tests/failingcalls/calls/control.h"
#include "tests/faults/machine/place.h"
#include "tests/faults/machine/real.h"

#include <sys/types.h>

#include <cerrno>
#include <string_view>

using failingcalls::Call;
using faults::isBelow;
using faults::real;

namespace {

template <typename Place> bool failsAt(Call call, const Place &place)
{
    const int before = errno;
    const bool isFailing = isBelow(place) && failingcalls::fails(call);
    errno = isFailing ? EIO : before;
    return isFailing;
}

} // namespace

extern "C" {

ssize_t write(int descriptor, const void *bytes, std::size_t size)
{
    static auto *const original = real<ssize_t(int, const void *, std::size_t)>("write");
    return failsAt(Call::Write, descriptor) ? -1 : original(descriptor, bytes, size);
}

ssize_t pwrite64(int descriptor, const void *bytes, std::size_t size, off64_t offset)
{
    static auto *const original
        = real<ssize_t(int, const void *, std::size_t, off64_t)>("pwrite64");
    return failsAt(Call::Write, descriptor) ? -1 : original(descriptor, bytes, size, offset);
}

int fsync(int descriptor)
{
    static auto *const original = real<int(int)>("fsync");
    return failsAt(Call::Flush, descriptor) ? -1 : original(descriptor);
}

int fdatasync(int descriptor)
{
    static auto *const original = real<int(int)>("fdatasync");
    return failsAt(Call::Flush, descriptor) ? -1 : original(descriptor);
}

int rename(const char *from, const char *to)
{
    static auto *const original = real<int(const char *, const char *)>("rename");
    if (failsAt(Call::UnseenRename, std::string_view(to)))
        return 0;
    return failsAt(Call::Rename, std::string_view(to)) ? -1 : original(from, to);
}
}

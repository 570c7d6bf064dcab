// The calls after which something is on disk for good, and the disks that only say so: where
// RECORDER_SWALLOWS is "folders", no folder is ever synced; where it is another text, no file whose
// name ends with it. The process hears of success all the same.

#include "tests/powercut/recorder/openings.h"
#include "tests/powercut/recorder/real.h"
#include "tests/powercut/recorder/recordlog.h"

#include <unistd.h>

#include <cstdlib>
#include <string>

namespace {

bool endsWith(const std::string &text, const std::string &end)
{
    return text.size() >= end.size()
        && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

bool isSwallowed(const recorder::Opening &opening)
{
    static const char *const set = std::getenv("RECORDER_SWALLOWS");
    static const std::string swallowed = set == nullptr ? "" : set;
    if (swallowed.empty())
        return false;
    return swallowed == "folders" ? opening.isFolder : endsWith(opening.path, swallowed);
}

int sync(int descriptor, const char *name)
{
    const std::lock_guard<std::mutex> lock(recorder::mutex());
    const auto opening = recorder::openingOf(descriptor);
    if (opening && isSwallowed(*opening))
        return 0;
    const int failed = recorder::real<int(int)>(name)(descriptor);
    if (failed == 0 && opening)
        recorder::append("sync", opening->number, 0, {});
    return failed;
}

} // namespace

extern "C" {

int fsync(int descriptor)
{
    return sync(descriptor, "fsync");
}

int fdatasync(int descriptor)
{
    return sync(descriptor, "fdatasync");
}

} // extern "C"

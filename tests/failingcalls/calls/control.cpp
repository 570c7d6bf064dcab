#include "tests/failingcalls/calls/control.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cstdlib>

namespace failingcalls {

namespace {

Control *control = nullptr;

// Before the program's own first call; until then the environment may not be there, and nothing is
// counted.
[[gnu::constructor]] void findControl()
{
    const char *const file = std::getenv(controlVariable);
    if (file == nullptr)
        return;
    const auto descriptor
        = static_cast<int>(::syscall(SYS_openat, AT_FDCWD, file, O_RDWR | O_CLOEXEC));
    if (descriptor < 0)
        std::abort();
    void *const page
        = ::mmap(nullptr, sizeof(Control), PROT_READ | PROT_WRITE, MAP_SHARED, descriptor, 0);
    ::syscall(SYS_close, descriptor);
    if (page == MAP_FAILED)
        std::abort();
    control = static_cast<Control *>(page);
}

} // namespace

bool fails(Call call)
{
    if (control == nullptr || control->call != call || ++control->counted != control->failing)
        return false;
    ++control->failed;
    return true;
}

} // namespace failingcalls

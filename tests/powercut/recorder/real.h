#pragma once

#include <dlfcn.h>

#include <cstdlib>

namespace recorder {

/// The function of that name that this library stands in front of. Ends the process where there is
/// none: a call that vanished would make a recording that proves nothing.
template <typename Function> Function *real(const char *name)
{
    void *const found = ::dlsym(RTLD_NEXT, name);
    if (found == nullptr)
        std::abort();
    return reinterpret_cast<Function *>(found);
}

} // namespace recorder

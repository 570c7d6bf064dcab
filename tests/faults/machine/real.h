#pragma once

#include "tests/faults/machine/control.h"

#include <dlfcn.h>

#include <cstdlib>

namespace faults {

/// The function of that name that this library stands in front of. Ends the process where there is
/// none.
template <typename Function> Function *real(const char *name)
{
    void *const found = ::dlsym(RTLD_NEXT, name);
    if (found == nullptr)
        std::abort();
    return reinterpret_cast<Function *>(found);
}

/// The shared page; one of its own that orders nothing in a process that was given none.
MachineControl &control();

} // namespace faults

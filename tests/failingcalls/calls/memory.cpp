// Memory, which there is none of once.

#include "tests/failingcalls/calls/control.h"

#include <cerrno>
#include <cstddef>

using failingcalls::Call;

extern "C" {

// Looking up the next function of a name takes memory itself; these names need no looking up.
void *__libc_malloc(std::size_t size);
void *__libc_calloc(std::size_t count, std::size_t size);
void *__libc_realloc(void *memory, std::size_t size);

static bool hasNone()
{
    if (!failingcalls::fails(Call::Memory))
        return false;
    errno = ENOMEM;
    return true;
}

void *malloc(std::size_t size)
{
    return hasNone() ? nullptr : __libc_malloc(size);
}

void *calloc(std::size_t count, std::size_t size)
{
    return hasNone() ? nullptr : __libc_calloc(count, size);
}

void *realloc(void *memory, std::size_t size)
{
    return hasNone() ? nullptr : __libc_realloc(memory, size);
}
}

// Calls of the library that exchanges with the service, as it has too little memory once.

#include "tests/failingcalls/calls/control.h"
#include "tests/faults/machine/real.h"

#include <cstdarg>

using failingcalls::Call;
using faults::real;

namespace {

constexpr int outOfMemory = 27; // CURLE_OUT_OF_MEMORY

} // namespace

extern "C" {

void *curl_easy_init()
{
    static auto *const original = real<void *()>("curl_easy_init");
    return failingcalls::fails(Call::Exchange) ? nullptr : original();
}

// Numbers and pointers are handed over in the same place.
int curl_easy_setopt(void *handle, int option, ...)
{
    static auto *const original = real<int(void *, int, ...)>("curl_easy_setopt");
    va_list arguments;
    va_start(arguments, option);
    void *const value = va_arg(arguments, void *);
    va_end(arguments);
    return failingcalls::fails(Call::Exchange) ? outOfMemory : original(handle, option, value);
}

void *curl_slist_append(void *list, const char *text)
{
    static auto *const original = real<void *(void *, const char *)>("curl_slist_append");
    return failingcalls::fails(Call::Exchange) ? nullptr : original(list, text);
}

int curl_easy_perform(void *handle)
{
    static auto *const original = real<int(void *)>("curl_easy_perform");
    return failingcalls::fails(Call::Exchange) ? outOfMemory : original(handle);
}
}

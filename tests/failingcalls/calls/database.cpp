// Steps of the statements of the database in a file.

#include "tests/failingcalls/calls/control.h"

#include <dlfcn.h>

#include <cstdlib>

using failingcalls::Call;

namespace {

using Step = int(void *);

// A plug-in brings the library, so it is no next one of the program's.
Step *originalStep()
{
    void *const library = ::dlopen("libsqlite3.so.0", RTLD_LAZY | RTLD_NOLOAD);
    void *const found = library == nullptr ? nullptr : ::dlsym(library, "sqlite3_step");
    if (found == nullptr)
        std::abort();
    return reinterpret_cast<Step *>(found);
}

} // namespace

extern "C" int sqlite3_step(void *statement)
{
    constexpr int inputOrOutput = 10; // SQLITE_IOERR
    static Step *const original = originalStep();
    return failingcalls::fails(Call::Database) ? inputOrOutput : original(statement);
}

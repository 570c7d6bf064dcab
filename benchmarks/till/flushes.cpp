#include "benchmarks/till/flushes.h"

#include <QtGlobal>

#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>

namespace {

std::atomic<bool> reaching = true;
std::atomic<long> counted = 0;

int flush(long call, int descriptor)
{
    ++counted;
    return reaching ? static_cast<int>(::syscall(call, descriptor)) : 0;
}

} // namespace

extern "C" Q_DECL_EXPORT int fsync(int descriptor)
{
    return flush(SYS_fsync, descriptor);
}

extern "C" Q_DECL_EXPORT int fdatasync(int descriptor)
{
    return flush(SYS_fdatasync, descriptor);
}

namespace flushes {

void reachDisk(bool yes)
{
    reaching = yes;
}

long count()
{
    return counted;
}

} // namespace flushes

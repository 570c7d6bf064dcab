#pragma once

#include <atomic>
#include <cstdint>

namespace failingcalls {

/// The calls of a till of which one fails.
enum class Call : std::int32_t
{
    None,
    Memory, ///< memory is asked for
    Write, ///< into the state folder
    Flush, ///< of a file or folder of the state folder
    Rename, ///< within the state folder
    UnseenRename, ///< the same, and the till is told that it was done
    Database, ///< a step of a statement
    Exchange ///< of the library that exchanges with the service
};

/// What the library that is loaded into the till and its test share: a page of memory in a file.
/// The test orders, the library counts.
struct Control
{
    std::atomic<Call> call{Call::None}; ///< counted, while it is one
    std::atomic<std::int64_t> counted{0};
    std::atomic<std::int64_t> failing{0}; ///< which of them fails, from 1; 0: none
    std::atomic<std::int32_t> failed{0};
};

static_assert(std::atomic<std::int64_t>::is_always_lock_free);

/// Name of the variable that names the file of the shared page.
constexpr auto controlVariable = "FAILING_CALLS";

/// Counts a call and says whether it is the one that fails. Takes no memory.
bool fails(Call call);

} // namespace failingcalls

#pragma once

#include <atomic>
#include <cstdint>

namespace faults {

/// What the disk below the till's state folder does.
enum class DiskState : std::int32_t
{
    Sound,
    Full, ///< what grows needs room, and there is none but what is given up meanwhile
    ReadOnly,
    Gone, ///< every call fails
    Slow ///< every flush takes a while
};

/// What the library that is loaded into the till and its test share: a page of memory in a file.
/// The test orders, the library counts.
struct MachineControl
{
    std::atomic<DiskState> disk{DiskState::Sound};
    std::atomic<std::int64_t> room{0}; ///< bytes that a full disk still has
    std::atomic<std::int32_t> nameIsUnknown{0};
    std::atomic<std::int32_t> servicePort{0}; ///< connections to it may go elsewhere
    std::atomic<std::int32_t> otherPort{0}; ///< where they go instead; 0: nowhere else
    std::atomic<std::int32_t> met{0}; ///< how many calls met an ordered fault
    std::atomic<std::int32_t> exchanges{0}; ///< how many exchanges have ended
    std::atomic<std::int64_t> longestMicroseconds{0}; ///< of all exchanges
};

static_assert(std::atomic<std::int64_t>::is_always_lock_free);

/// Names of the variables by which the library finds its orders.
constexpr auto controlVariable = "FAULTS_CONTROL"; ///< the file of the shared page
constexpr auto folderVariable = "FAULTS_FOLDER"; ///< the till's state folder
constexpr auto spoilVariable = "FAULTS_SPOIL"; ///< a wrong that the till is to do, for controls
/// Values of the last: each failed exchange is tried again; each one takes two seconds more; each
/// one keeps some memory; some keep a file open.
constexpr auto spoilRetry = "retry";
constexpr auto spoilPatience = "patience";
constexpr auto spoilMemory = "memory";
constexpr auto spoilDescriptors = "descriptors";
/// The name under which the till knows its service; looked up nowhere.
constexpr auto serviceName = "loyalty.test";

} // namespace faults

#pragma once

/// Takes the place of the system's fsync and fdatasync in this program.
namespace flushes {

/// Whether flushes reach the disk; they are counted either way.
void reachDisk(bool yes);
/// How many there were so far.
[[nodiscard]] long count();

} // namespace flushes

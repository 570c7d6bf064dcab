#pragma once

#include <optional>
#include <string>

namespace recorder {

/// A file or folder below the recorded folder that the process has open.
struct Opening
{
    int number = 0; ///< from 1, never given twice; descriptors of one opening share it
    std::string path; ///< at the time of the opening
    bool isFolder = false;
};

/// A path below the recorded folder as it stands in the log: relative to it, "" for itself. Nothing
/// for other paths.
/// @param folder descriptor of the folder that a relative path starts from, or AT_FDCWD.
std::optional<std::string> recordedPath(int folder, const char *path);

/// Notes that a descriptor was opened, and records it where it is below the recorded folder.
/// @param flags as open(2) takes them.
void opened(int descriptor, int folder, const char *path, int flags);
/// Notes that a descriptor is a copy of another one.
void copied(int descriptor, int from);
/// Notes that a descriptor is closed, and records it when it was the last of its opening.
void closed(int descriptor);
/// What a descriptor has open; nothing when it is not below the recorded folder.
std::optional<Opening> openingOf(int descriptor);

} // namespace recorder

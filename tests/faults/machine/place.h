#pragma once

#include <string_view>

namespace faults {

/// Whether a file stands below the till's state folder, which a variable names.
bool isBelow(std::string_view path);
/// The same of an open file; the till names its files by whole paths.
bool isBelow(int descriptor);

} // namespace faults

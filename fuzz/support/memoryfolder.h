#pragma once

#include <QString>

namespace fuzz {

/// A folder of this process's own, emptied, in memory where the system has such a place: inputs
/// come by the thousand, and none needs to outlive a power cut. Gone when the process ends as it
/// should.
[[nodiscard]] QString emptyFolder();

} // namespace fuzz

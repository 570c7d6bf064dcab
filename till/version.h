#pragma once

namespace till {

/// The version of the till and everything that was built with it, such as "0.1.0".
[[nodiscard]] const char *version();

} // namespace till

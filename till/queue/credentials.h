#pragma once

#include <QString>

namespace till {

/// The value of "Authorization" that messages of the loyalty plug-in get: Basic, with the user and
/// the password of its settings, empty ones included.
[[nodiscard]] QString configuredAuthorization();

} // namespace till

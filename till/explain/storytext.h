#pragma once

#include "till/explain/story.h"

namespace till::explain {

/// A story for people, in the language of the interface: a heading, a line for each step, where the
/// points are, why, and what to do. What a service or a file says cannot work the terminal.
[[nodiscard]] QString storyText(const Story &story);

} // namespace till::explain

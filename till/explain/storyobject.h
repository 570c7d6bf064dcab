#pragma once

#include "till/explain/story.h"
#include "till/transcript/json.h"

namespace till::explain {

/// A story for programs: "number", "correlationId", "return", "refersTo", "card", "steps" and
/// "conclusion". Texts are Russian, times in UTC, amounts numbers; what is not there is null.
[[nodiscard]] Json storyObject(const Story &story);

} // namespace till::explain

#pragma once

#include "till/explain/story.h"

namespace till::explain {

/// What happened to a document, in the order of time.
[[nodiscard]] QList<Step> stepsOf(const Evidence &evidence);

} // namespace till::explain

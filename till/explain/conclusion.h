#pragma once

#include "till/explain/story.h"

namespace till::explain {

/// Where the points of a document are, why, and what to do next.
/// @param technicalCardName the name by which cards that the till makes up are known.
[[nodiscard]] Conclusion conclude(const Evidence &evidence, const QString &technicalCardName);

} // namespace till::explain

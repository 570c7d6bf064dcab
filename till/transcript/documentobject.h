#pragma once

#include "host/documents/abstractdocument.h"
#include "till/transcript/json.h"

namespace till {

/// The document as the transcript shows it, with the members that `docs/till.md` lists.
[[nodiscard]] Json documentObject(const AbstractDocument &document);

} // namespace till

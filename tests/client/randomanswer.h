#pragma once

#include <QString>

#include <random>

/// An answer to a cheque request by chance: most are such as the service gives them, with elements
/// missing, doubled, out of place or inside one another, texts in pieces, comments between,
/// prefixed and misspelt names; some are nothing but such elements. Always XML. The same engine
/// gives the same answers.
[[nodiscard]] QString randomAnswer(std::mt19937 &engine);

#pragma once

#include "till/check/finding.h"
#include "till/console/paint.h"
#include "till/transcript/json.h"

#include <QString>

/// Findings for people and for programs.
namespace till::check {

/// Area by area, one finding a line, what to do below it; then the worst. The settings that take
/// their default stand together, a line for each section. In the language of the interface.
[[nodiscard]] QString listing(const Findings &findings, const Paint &paint);

/// {"findings": [{"severity", "area", "file", "line", "key", "id", "message", "remedy"}], "worst"};
/// what there is none of is null. Texts are Russian.
[[nodiscard]] Json findingsObject(const Findings &findings);

} // namespace till::check

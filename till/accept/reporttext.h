#pragma once

#include "till/accept/report.h"
#include "till/transcript/json.h"

#include <QString>

namespace till::accept {

/// The report for people: a line for each flow and rule, behind a failure what was expected, what
/// came and the exchange.
[[nodiscard]] QString reportText(const Report &report, const Acceptance &acceptance);
/// The same as data; docs/acceptance.md tells the members.
[[nodiscard]] Json reportObject(const Report &report, const Acceptance &acceptance);
/// What a person must do now, a line each, because the service was left otherwise than it was;
/// empty where nothing was left.
[[nodiscard]] QStringList leftOverText(const Report &report);

/// What `--list` tells: the flows with their rules.
[[nodiscard]] QString listText(const Acceptance &acceptance);
[[nodiscard]] Json listObject(const Acceptance &acceptance);

} // namespace till::accept

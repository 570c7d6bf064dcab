#pragma once

#include "till/accept/flow.h"

#include <QString>

namespace till::accept {

/// The folder `protocol/` that is built into the program.
[[nodiscard]] QString builtInProtocol();

/// Reads rules and flows of a folder like `protocol/`: `acceptance/rules.json` and the other JSON
/// files beside it, in the order of their names. Strict: an unknown member, a rule that is not
/// among the rules, a sample that is not there, and two flows or steps of one name are errors.
/// @throws CannotDo with file and place.
[[nodiscard]] Acceptance readAcceptance(const QString &protocolFolder);

} // namespace till::accept

#pragma once

#include "till/transcript/json.h"

#include <QString>

namespace till::support {

/// The name by which cards that the till makes up are known: of the settings, or the plug-in's own.
[[nodiscard]] QString technicalCardName();

/// What the programs are and what they run on: "program", "qt", "curl", "archive", "plugin" with
/// its file and the metadata in it, "system", "timeZone", "technicalCardName". Loads no plug-in.
[[nodiscard]] Json versions(const QString &program, const QString &pluginFile);

} // namespace till::support

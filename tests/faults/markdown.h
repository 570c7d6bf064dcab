#pragma once

#include <QString>

namespace faults {

/// The table for people, with what its words mean: Markdown, lines that end.
QString markdown();

} // namespace faults

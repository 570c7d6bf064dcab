#pragma once

#include <QUrl>

namespace till {

/// The page that the loyalty service of "Till:serviceApi" shows in a browser; empty where none is
/// set.
[[nodiscard]] QUrl servicePage();

} // namespace till

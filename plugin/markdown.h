#pragma once

#include <QString>

/// Goods sold at a reduced price, and the coupons for them, are known by a marker in what was
/// scanned or in the position's options.
namespace markdown {

/// Whether the text carries the marker, in any case of the letters.
[[nodiscard]] bool isMarked(const QString &text);
/// The one to three digits behind the last marker that digits follow: the markdown in per cent.
/// Empty where there are none.
[[nodiscard]] QString percentage(const QString &text);

} // namespace markdown

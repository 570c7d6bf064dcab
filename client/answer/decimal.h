#pragma once

#include <QString>

namespace korvelLoyaltyOnline {

/// The same number as `QString::toDouble` gives, 0 for what is none. Amounts as the service writes
/// them, digits with or without a fraction, take a tenth of its time.
[[nodiscard]] double decimal(const QString &text);

} // namespace korvelLoyaltyOnline

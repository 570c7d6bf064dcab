#pragma once

#include <QDateTime>
#include <QString>

namespace till {

// For people's eyes only, as the locale of the interface writes it. Scripts, transcripts and what
// other programs read keep the plain form of till/core/amounttext.h.

/// An amount of money or points: two decimals, thousands grouped.
[[nodiscard]] QString amountForEyes(double amount);
/// A quantity: as many decimals as it has.
[[nodiscard]] QString quantityForEyes(double quantity);
/// A moment: date and time to the minute, in the time zone of the moment.
[[nodiscard]] QString momentForEyes(const QDateTime &moment);

} // namespace till

#pragma once

#include <QString>
#include <QStringView>

#include <optional>
#include <utility>

namespace emulator {

/// Reads a decimal number into units of its last decimal: ("1.5", 9, 3) gives 1500.
/// Nothing when the text is not one or has more digits than stated before or behind the point.
std::optional<qint64> parseDecimal(QStringView text, int digits, int decimals);

/// The reverse of `parseDecimal`: always all decimals, a leading minus for negatives.
QString formatDecimal(qint64 units, int decimals);

/// a × b / c, rounded half away from zero; exact in between. c must be greater than zero.
qint64 multiplyAndRound(qint64 a, qint64 b, qint64 c);

/// a × b / c rounded down and the remainder, for values that are not negative.
std::pair<qint64, qint64> multiplyAndDivide(qint64 a, qint64 b, qint64 c);

/// Whether |a × b| exceeds limit × scale; nothing overflows on the way.
bool exceeds(qint64 a, qint64 b, qint64 limit, qint64 scale);

} // namespace emulator

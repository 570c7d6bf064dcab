#pragma once

#include <QString>

namespace emulator {

/// A thirteen-digit number as scanners read it: the prefix, the sequence number padded with
/// zeros, the check digit.
QString couponNumber(const QString &prefix, qint64 sequence);

} // namespace emulator

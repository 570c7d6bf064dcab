#pragma once

#include <QString>

/// The number of a technical card: the prefix and `suffixLength` digits of a random number, its
/// leading ones, with zeros in front where it is shorter. A negative length takes all its digits.
[[nodiscard]] QString technicalCardNumber(
    const QString &prefix, int suffixLength, quint64 randomNumber);

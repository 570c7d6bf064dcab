#pragma once

#include <QByteArray>
#include <QList>

namespace emulator {

/// The number with its first four and last four digits; each digit between is a "*". Numbers of
/// at most eight digits stay as they are, and so does what is masked already.
QByteArray maskedNumber(const QByteArray &number);

/// What the elements "CardNumber" of a message hold, without doubles, long ones first. Looked for
/// in the bytes, so that a message that cannot be read keeps no card number either.
QList<QByteArray> cardNumbersIn(const QByteArray &message);

/// The text with each of the numbers masked, wherever it stands.
QByteArray withMasked(QByteArray text, const QList<QByteArray> &numbers);

/// The reverse, as far as the numbers are known.
QByteArray withUnmasked(QByteArray text, const QList<QByteArray> &numbers);

} // namespace emulator

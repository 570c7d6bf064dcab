#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

namespace emulator {

/// Names that a message may hold in braces: {holder} {card} {balance} {earned} {spent}
/// {discount} {sum}.
const QStringList &messagePlaceholders();

/// The same and {coupon}, the number of the instant coupon that the text belongs to.
const QStringList &couponPlaceholders();
QString couponPlaceholder();

/// The names between braces, in order.
QStringList placeholdersOf(const QString &text);

/// The text with its placeholders filled; a value is not searched for placeholders again.
/// A name without a value stays as it is written.
QString fillPlaceholders(const QString &text, const QMap<QString, QString> &values);

/// The cheque's text followed by the coupons' texts, each behind the delimiter by which a till
/// takes them apart again: two EN DASHes.
QString chequeMessage(const QString &text, const QStringList &couponTexts);

} // namespace emulator

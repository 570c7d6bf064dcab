#pragma once

#include <QString>
#include <QStringList>

/// The service sends one text for the cheque: a message, then the texts of the coupons, each behind
/// a delimiter. These rules take it apart. An empty delimiter counts as not occurring.
namespace korvelLoyaltyOnline {

/// The delimiter as an administrator wrote it, with escapes such as "\u2013" replaced by the
/// characters they name. What is no complete escape stays as it is.
[[nodiscard]] QString unescapedDelimiter(QString text);

/// The message of the cheque: what stands before the first delimiter, without outer blanks. Null
/// for a null text.
[[nodiscard]] QString textBeforeCoupons(const QString &text, const QString &delimiter);

/// The coupons' texts, untrimmed and without empty ones; none without a delimiter.
[[nodiscard]] QStringList textsOfCoupons(const QString &text, const QString &delimiter);

} // namespace korvelLoyaltyOnline

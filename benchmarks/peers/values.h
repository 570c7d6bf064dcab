#pragma once

#include <QMap>
#include <QString>
#include <QVariant>

#include <string>
#include <string_view>

/// What both peers need to turn texts into the values of the result map and amounts into texts,
/// without a detour over QString where they have none.
namespace peers {

using Values = QMap<QString, QVariant>;

/// 0 for what is no number.
[[nodiscard]] double numberOf(std::string_view text);
/// Never null.
[[nodiscard]] QString textOf(std::string_view text);
[[nodiscard]] std::string fixed(double value, int decimals = 2);

/// Sets "ChequeMessage" and "CouponsToPrint" as the client does without a setting.
void insertCoupons(const QString &message, const QStringList &numbers, Values &result);

} // namespace peers

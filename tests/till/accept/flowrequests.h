#pragma once

#include <QByteArray>

/// What the requests of the flows of `protocol/acceptance/` are told apart by.
namespace flowrequests {

[[nodiscard]] bool any(const QByteArray &);
[[nodiscard]] bool isOfUnknownCard(const QByteArray &request);
[[nodiscard]] bool isStale(const QByteArray &request);
/// The calculation of the flow "calculation".
[[nodiscard]] bool isCalculation(const QByteArray &request);
/// The registration of the flow "registration".
[[nodiscard]] bool isRegistration(const QByteArray &request);
[[nodiscard]] bool repeatsFigures(const QByteArray &request);
[[nodiscard]] bool asksForTooMany(const QByteArray &request);
[[nodiscard]] bool asksForOne(const QByteArray &request);
[[nodiscard]] bool asksForCode(const QByteArray &request);
[[nodiscard]] bool hasTwoCoupons(const QByteArray &request);
[[nodiscard]] bool isReturnOfOne(const QByteArray &request);
/// Of a transaction that the service has never told.
[[nodiscard]] bool isUnknownRollback(const QByteArray &request);
[[nodiscard]] bool isKnownRollback(const QByteArray &request);

} // namespace flowrequests

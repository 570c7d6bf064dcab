#pragma once

#include "host/framework/tr.h"
#include "till/check/effective.h"
#include "till/check/finding.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>

#include <chrono>

/// The loyalty service as the till's settings reach it.
namespace till::check {

/// How an exchange with the service went. A record of values.
struct Exchanged
{
    int error = 0; ///< as `RestClient::errorCode`
    tr::Tr errorText; ///< as `RestClient::errorMessage`
    QByteArray body; ///< of the answer, whatever its status
    QDateTime date; ///< the service's clock, UTC; invalid: not told
    QDateTime received; ///< by the till's clock, UTC
    std::chrono::milliseconds took{0};
};

/// Connects to the service and asks it: for the balance of the card, or, without one, with an empty
/// message. Blocks for the limits of the settings at most. Nothing is booked by either.
/// @param card number of a test card; empty: none.
[[nodiscard]] Findings judgeService(const Effective &effective, const QString &card);

/// What an exchange says about authorisation and the service.
/// @param hasCard whether it asked for a balance.
[[nodiscard]] Findings judgeAnswer(const Exchanged &exchanged, bool hasCard);
/// How far the clocks are apart.
[[nodiscard]] Findings judgeClock(const Exchanged &exchanged);
/// How long the cashier would wait.
/// @param limit that the settings give an exchange.
[[nodiscard]] Findings judgeTime(const Exchanged &exchanged, std::chrono::seconds limit);

} // namespace till::check

#pragma once

#include "till/core/exchangelog.h"

#include <QString>

/// Exchanges with the loyalty service as texts for people. Pure functions.
namespace till::exchangetext {

/// What was asked, in a word or two: calculation, registration, return and the like.
[[nodiscard]] QString operation(const ExchangeRecord &record);
/// The service's return code with its message, or why there is none.
[[nodiscard]] QString outcome(const ExchangeRecord &record);
/// Whether the service did what it was asked for.
[[nodiscard]] bool hasSucceeded(const ExchangeRecord &record);
/// Date, time with milliseconds.
[[nodiscard]] QString begun(const ExchangeRecord &record);
[[nodiscard]] QString duration(const ExchangeRecord &record);

/// A request or an answer, indented, as the window shows it: without the holder's verification
/// code. What is no XML, and what is nested too deep for an indentation, stands as it came.
[[nodiscard]] QString shown(const QByteArray &xml);
/// Request and answer for another program or a letter: card numbers are masked too.
[[nodiscard]] QString forClipboard(const ExchangeRecord &record);

} // namespace till::exchangetext

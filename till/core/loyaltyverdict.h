#pragma once

#include "host/queue/dbqueuebroker.h"
#include "host/queue/verdict.h"

#include <QByteArray>
#include <QList>

namespace till {

/// Name of the queue that the loyalty plug-in puts its messages into.
inline const QString loyaltyQueue = QStringLiteral("korvelloyaltyonline");

/// Judges the answer to a queued message of the loyalty service.
///
/// Delivered: a 2xx answer, well-formed XML, whose first "ReturnCode" stands in a "BalanceResponse"
/// or "ChequeResponse" and is 0 or less. Refused: one of the service's codes that no repetition can
/// change. Everything else deserves another attempt: what a proxy answers in the service's place
/// must not pass for a delivery.
/// @param errorCode  as `RestClient::errorCode` gives it.
/// @param finalCodes codes that count as refused beside the service's own ("errorsList").
[[nodiscard]] Verdict judgeLoyaltyAnswer(
    int errorCode, const QByteArray &body, const QList<int> &finalCodes);

/// Lets these rules judge the messages of the loyalty plug-in. The final codes are read from the
/// configuration here, once.
void judgeLoyaltyMessages(DBQueueBroker &broker);

} // namespace till

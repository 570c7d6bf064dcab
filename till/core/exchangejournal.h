#pragma once

#include "till/core/exchangelog.h"

namespace till {

/// Appends to the journal what the current document's exchange was about: what was asked, granted,
/// booked or refused. No headers, no bodies, no verification code. An exchange of another document,
/// which the queue sends meanwhile, has its account there and is left out.
void journalExchange(const ExchangeRecord &record);

} // namespace till

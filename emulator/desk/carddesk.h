#pragma once

#include "emulator/desk/context.h"
#include "emulator/soap/answer.h"
#include "emulator/soap/request.h"

namespace emulator {

/// Puts the data's cards into the books, with their opening balances where they are new.
void openCards(const DeskContext &context);

/// The card of that number; one that a till has made up exists without being in the books.
std::optional<Card> findCard(const DeskContext &context, const QString &number);

/// Why no cheque can be registered with the card; nothing when it can.
std::optional<Outcome> refusalOf(const DeskContext &context, const std::optional<Card> &card);

/// Puts a made-up card into the books, so that its cheques can refer to it.
void keepTechnicalCard(const DeskContext &context, const Card &card);

/// What the card is and has. A till asks when the card is presented, so what it calculated for the
/// card before belongs to cheques that are over; one of them may still come to be registered.
Answer balance(const DeskContext &context, const BalanceRequest &request);

} // namespace emulator

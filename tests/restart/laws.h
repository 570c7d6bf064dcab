#pragma once

#include "tests/restart/books.h"

#include <QStringList>

namespace restart {

/// What must be true of the books in the end, however often the till was killed in between. Each
/// function returns what is wrong, a plain sentence for each thing; nothing when all is well.
namespace laws {

/// Every closed cheque with a loyalty card is registered once, every such return booked once, and
/// the service has booked nothing else.
QStringList everythingIsBookedOnce(const Books &books);
/// What was registered says the same about points and sums as the closed cheque does.
QStringList figuresAgree(const Books &books);
/// Each card's points and stickers come from its opening balance and its transactions, each counted
/// once.
QStringList balancesComeFromTransactions(const Books &books);
/// Nothing waits, nothing is torn, nothing is left lying about, and tills end in order.
QStringList nothingIsLeftOver(const Books &books);

/// All of them.
QStringList violations(const Books &books);

} // namespace laws

} // namespace restart

#pragma once

#include "emulator/desk/context.h"
#include "emulator/soap/answer.h"
#include "emulator/soap/request.h"

namespace emulator {

/// Undoes a transaction of the card: its points and stickers, the coupons it used and those it
/// issued. Undoing it again answers the same and moves nothing. A sale of which goods have come
/// back stays.
Answer rollback(const DeskContext &context, const RollbackRequest &request);

} // namespace emulator

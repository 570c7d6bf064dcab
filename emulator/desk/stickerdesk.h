#pragma once

#include "emulator/desk/context.h"
#include "emulator/rules/stickers.h"
#include "emulator/soap/request.h"

namespace emulator {

/// What a request may do about stickers.
enum class StickerTerms
{
    KeepAgreed, ///< exchanges that were agreed before, nothing else
    Agree ///< the same, and new ones may be offered and accepted
};

/// Exchanges stickers for discounts on the positions: those agreed before, then those that the
/// request accepts. Where it accepts none, offers are made. Tells what the exchanges agreed before
/// left and whether the card's stickers sufficed for them.
StickerSettlement settleStickers(const DeskContext &context, const SaleRequest &request,
    StickerTerms terms, Positions &positions);

} // namespace emulator

#pragma once

#include "emulator/desk/coupondesk.h"
#include "emulator/desk/stickerdesk.h"
#include "emulator/rules/calculation.h"
#include "emulator/soap/request.h"

namespace emulator {

/// A sale worked out, nothing booked.
struct Quote
{
    Card card;
    Calculation calculation;
    Amount balance; ///< before the sale
    Amount available; ///< points that may pay for it
    Amount wish; ///< points that the till asks to spend
    std::vector<AnsweredCoupon> coupons;
    StickerSettlement stickers; ///< of the exchanges that were agreed before

    bool isAffordable() const { return wish <= available; }
};

/// Applies discounts, coupons, stickers, points and earning to the sale. The points are only spent
/// in the calculation when they are available; an exchange of stickers is cut to what they pay for.
Quote quoteSale(const DeskContext &context, const SaleRequest &request, const Card &card,
    Amount wish, StickerTerms terms);

/// The answer's figures of a calculation: no transaction, the balance as it is.
ChequeFigures figuresOf(const DeskContext &context, const Quote &quote);

/// Fills the messages from their templates and the figures.
void fillMessages(ChequeFigures &figures, const Quote &quote, const Messages &templates,
    const std::vector<IssuedCoupon> &issued);

} // namespace emulator

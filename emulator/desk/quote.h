#pragma once

#include "emulator/desk/coupondesk.h"
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

    bool isAffordable() const { return wish <= available; }
};

/// Applies discounts, coupons, points and earning to the sale. The points are only spent in the
/// calculation when they are available.
Quote quoteSale(
    const DeskContext &context, const SaleRequest &request, const Card &card, Amount wish);

/// The answer's figures of a calculation: no transaction, the balance as it is.
ChequeFigures figuresOf(const DeskContext &context, const Quote &quote);

/// Fills the messages from their templates and the figures.
void fillMessages(ChequeFigures &figures, const Quote &quote, const Messages &templates,
    const std::vector<IssuedCoupon> &issued);

} // namespace emulator

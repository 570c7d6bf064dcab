#pragma once

#include "emulator/soap/request.h"

#include <QDateTime>

#include <optional>

namespace emulator {

/// What the last calculation of a cheque was answered with.
struct LastCalculation
{
    Amount sum;
    Amount discount;
    Amount sumDiscounted;
    Amount wish; ///< points that it was asked to spend and did
    QString code; ///< the verification code that was issued; empty: none
    QDateTime codeIssued; ///< UTC; invalid without a code
    int wrongCodes = 0; ///< registrations that came with another code
    bool isOver = false; ///< the cheque is no longer calculated; it may still be registered
};

/// How many points the request means to spend.
///
/// "PaidByBonus" alone does not tell: a till that has no answer for the cheque yet sends the sum
/// after discounts there, and means nothing. So where the two are equal
/// - a calculation means it only when it repeats the figures of the last answer, which a till
///   always does once it has one; not those of a cheque that is over, whose number came again;
/// - a registration means it only when the last calculation has spent just that.
/// In all other cases the value is the wish.
Amount wishOf(const SaleRequest &sale, const std::optional<LastCalculation> &last);

} // namespace emulator

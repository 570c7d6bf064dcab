#pragma once

#include "emulator/desk/context.h"
#include "emulator/soap/answer.h"
#include "emulator/soap/request.h"

namespace emulator {

/// "Soft": works the cheque out and books nothing. It remembers what it answered, which the next
/// request of the cheque needs to be understood, and issues a verification code when asked to.
Answer calculateSale(const DeskContext &context, const SaleRequest &request);

/// "Fiscal": books the sale, once; a repeat gets the first answer.
Answer registerSale(const DeskContext &context, const SaleRequest &request);

/// All figures of the sale without points, under the given outcome; nothing is remembered.
Answer refuseSpending(
    const DeskContext &context, const SaleRequest &request, const Outcome &outcome);

} // namespace emulator

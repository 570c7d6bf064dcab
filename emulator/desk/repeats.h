#pragma once

#include "emulator/desk/context.h"
#include "emulator/soap/answer.h"
#include "emulator/soap/request.h"

namespace emulator {

/// Equal for cheques with the same positions: number, article, price and quantity of each, in
/// whatever order. Sums are left out: a queued cheque may carry others.
QString fingerprintOf(const std::vector<RequestPosition> &positions);

/// The answer to a cheque that was registered before, within seven days and not rolled back:
/// the first one when the fingerprint is the same, otherwise a refusal. Nothing when the cheque
/// is new. A clock that was set back in between does not make a cheque new.
std::optional<Answer> answerToRepeat(const DeskContext &context, TransactionKind kind,
    const ChequeKey &cheque, const QString &fingerprint);

/// Keeps the answer beside its transaction for a repeat. The answer must hold figures.
void keepAnswer(const DeskContext &context, const ChequeAnswer &answer);

} // namespace emulator

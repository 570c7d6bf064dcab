#pragma once

#include "emulator/data/servicedata.h"
#include "emulator/rules/wish.h"
#include "emulator/soap/request.h"

namespace emulator {

/// The code for a calculation that asks for one: six random digits, or the configured one.
/// Empty when none was asked for or no points are to be spent.
QString issueCode(const SaleRequest &request, Amount points, const Spending &rules);

/// Whether a code holds no longer: it is too old, or too many wrong ones were tried.
bool isCodeVoid(
    const QDateTime &issued, int wrongCodes, const Spending &rules, const QDateTime &now);

enum class Verdict
{
    Confirmed,
    NoCode, ///< a code is wanted and none was issued for these points, or none is given
    WrongCode,
    CodeIsVoid
};

/// Whether these points may be written off. Where a code was issued for just these points, with
/// that code as long as it holds, or without any confirmation, as a till's queue brings it however
/// late; otherwise when the rules want no code for so many. A code for other points is not looked
/// at.
Verdict verdictOn(const SaleRequest &request, Amount points, const Spending &rules,
    const std::optional<LastCalculation> &last, const QDateTime &now);

} // namespace emulator

#pragma once

#include "emulator/faults/fault.h"

#include <stdexcept>

namespace emulator {

/// Fault words that make no sense; `what()` tells their author what is expected.
class FaultWordsError : public std::runtime_error
{
public:
    explicit FaultWordsError(const QString &message)
        : std::runtime_error(message.toStdString())
    { }
};

/// Reads "soft lose 2", "all delay 500 always", "fiscal swallow 2.5% seed 7", "refuse 3",
/// "stall 2000", "clear", "stop":
/// `<balance|soft|fiscal|return|rollback|all> <fault> [N|always|PERCENT% [seed S]]`,
/// N is 1 when it is left out.
FaultCommand parseFaultWords(const QString &words);

/// The words again, in full: "soft lose 2".
QString faultWords(const FaultCommand &command);

} // namespace emulator

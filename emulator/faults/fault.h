#pragma once

#include "emulator/data/operations.h"

#include <QString>

#include <optional>
#include <stdexcept>
#include <variant>

namespace emulator {

enum class FaultKind
{
    Delay, ///< act, then wait `argument` milliseconds before answering
    Half, ///< act, then cut the answer in the middle
    Reset, ///< reset the connection, without acting
    NotXml, ///< answer something that is not XML, without acting
    Status, ///< answer the HTTP status `argument`, without acting
    Code, ///< answer the return code `argument`, without acting
    Lose, ///< act, then close the connection without an answer
    Unauthorised ///< answer 401, without acting
};

/// What goes wrong, for whom and how often.
struct Fault
{
    std::optional<Operation> operation; ///< nothing: every operation
    FaultKind kind = FaultKind::Reset;
    int argument = 0;
    std::optional<int> left; ///< requests still to come; nothing: always
};

/// The next connections are closed before anything is read.
struct RefuseConnections
{
    int count = 0;
};

struct ClearFaults
{ };

struct StopService
{ };

using FaultCommand = std::variant<Fault, RefuseConnections, ClearFaults, StopService>;

/// Fault words that make no sense; `what()` tells their author what is expected.
class FaultWordsError : public std::runtime_error
{
public:
    explicit FaultWordsError(const QString &message)
        : std::runtime_error(message.toStdString())
    { }
};

/// Reads "soft lose 2", "all delay 500 always", "refuse 3", "clear", "stop":
/// `<balance|soft|fiscal|return|rollback|all> <fault> [N|always]`, N is 1 when it is left out.
FaultCommand parseFaultWords(const QString &words);

/// The words again, in full: "soft lose 2".
QString faultWords(const FaultCommand &command);

QString faultName(FaultKind kind);

} // namespace emulator

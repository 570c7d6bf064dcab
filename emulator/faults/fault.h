#pragma once

#include "emulator/data/operations.h"

#include <QString>

#include <array>
#include <optional>
#include <variant>

namespace emulator {

/// What goes wrong with a request. The first four strike after the service has acted upon it.
enum class FaultKind
{
    Delay, ///< waits `argument` milliseconds before answering
    Drip, ///< the answer takes `argument` milliseconds from its first byte to its last
    Half, ///< cuts the answer in the middle
    Lose, ///< closes the connection without an answer
    Swallow, ///< closes the connection without an answer, and nothing was done
    Reset, ///< resets the connection
    Empty, ///< answers nothing, with status 200
    NotXml, ///< answers something that is not XML
    WrongXml, ///< answers well-formed XML that is no answer
    Huge, ///< answers eight megabytes of XML
    Status, ///< answers the HTTP status `argument`
    Redirect, ///< answers the HTTP status `argument` with another address
    Code, ///< answers the return code `argument`
    Unauthorised ///< answers 401
};

/// How often a fault strikes that strikes by chance. The same seed gives the same series.
struct Chance
{
    static constexpr int whole = 100'000;
    static constexpr quint32 usualSeed = 1;

    int thousandths = whole; ///< of a per cent
    quint32 seed = usualSeed;
};

/// What goes wrong, for whom and how often.
struct Fault
{
    std::optional<Operation> operation; ///< nothing: every operation
    FaultKind kind = FaultKind::Reset;
    int argument = 0;
    std::optional<int> left; ///< requests still to come; nothing: always, or by chance
    std::optional<Chance> chance;
};

/// What goes wrong with a connection before anything is read, whatever it was to ask.
enum class ConnectionFaultKind
{
    Refuse, ///< is closed
    Silence, ///< is kept open and never answered
    Stall ///< is read only after `milliseconds`
};

/// It strikes the next connections.
struct ConnectionFault
{
    ConnectionFaultKind kind = ConnectionFaultKind::Refuse;
    int milliseconds = 0;
    int left = 0;
};

struct ClearFaults
{ };

struct StopService
{ };

using FaultCommand = std::variant<Fault, ConnectionFault, ClearFaults, StopService>;

/// A fault's name in words, and what number goes with it.
struct KindOfFault
{
    FaultKind kind;
    const char16_t *name;
    const char16_t *argument; ///< what the argument is; null: there is none
    int least;
    int greatest;
};

/// All of them, in the order of `FaultKind`.
extern const std::array<KindOfFault, 14> kindsOfFault;

QString faultName(FaultKind kind);
QString faultName(ConnectionFaultKind kind); ///< "refuse", "silence", "stall"

/// Whether the request is acted upon before the fault strikes.
bool actsBeforeStriking(FaultKind kind);

} // namespace emulator

#pragma once

#include <QString>

#include <vector>

namespace faults {

/// Where a fault comes from.
enum class Group
{
    Network,
    Content,
    Disk,
    Clock
};

/// What goes wrong. `None` is for the control that nothing is found without a fault.
enum class Kind
{
    None,
    Refused,
    NameUnknown,
    Unreachable,
    TlsWrongName,
    TlsExpired,
    TlsUnknownAuthority,
    ClosedBeforeReading,
    ClosedAfterReading,
    AnswerLost,
    Reset,
    CutHead,
    CutBody,
    DripHead,
    DripBody,
    Silent,
    MovedForGood,
    Found,
    MovedForNow,
    Unauthorised,
    Forbidden,
    NotFound,
    ServerFault,
    Unavailable,
    OtherAnswer,
    TwiceAnnounced,
    Empty,
    HtmlPage,
    OtherXml,
    WrongEncoding,
    MissingElements,
    DoubledElements,
    AbsurdNumbers,
    TenThousandPositions,
    FiveMegabytes,
    DiskFull,
    DiskReadOnly,
    DiskGone,
    DiskSlow,
    FileTruncated,
    FileGarbage,
    FileNewer,
    ClockBack,
    ClockForward,
    ZoneChanged
};

struct Fault
{
    Kind kind = Kind::None;
    Group group = Group::Network;
    QString name; ///< in the table and in the names of cells
};

/// All but `None`, in the table's order.
const std::vector<Fault> &allFaults();
/// What stands for a group in the table.
QString titleOf(Group group);
/// Whether the till keeps the service's name or the time zone as they were when it started, so that
/// only a fresh one meets the fault.
bool needsFreshTill(Kind kind);
/// Whether the till speaks TLS with the service.
bool needsTls(Kind kind);
/// Whether the till reads files that were damaged while it was switched off.
bool damagesFiles(Kind kind);

} // namespace faults

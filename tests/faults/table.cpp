#include "tests/faults/table.h"

#include <algorithm>
#include <array>
#include <map>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace faults {

namespace {

using Row = std::array<Outcome, allOperations.size()>;

// Read at the start; a running till replaces it as a whole.
const QString readAtStart
    = u"the file is read when the till starts, see restoring; a running till replaces it whole"_s;

const std::map<Kind, Row> &rows()
{
    using enum Outcome;
    // clang-format off
    static const Row lost       {Offline, Offline, Offline, Queued,     Queued,   KeptOpen, Waits, AsksNothing, AsksNothing};
    static const Row unreadable {Refused, Refused, Refused, KeptOpen,   KeptOpen, KeptOpen, Waits, AsksNothing, AsksNothing};
    static const Row harmless   {Done,    Done,    Done,    Done,       Done,     Done,     Done,  AsksNothing, AsksNothing};
    static const Row unaffected {Done,    Done,    Done,    Done,       Done,     Done,     Done,  Done,        Done};
    static const Row brokenDisk {Stops,   Stops,   Stops,   Stops,      Stops,    Stops,    Stops, Stops,       Stops};
    static const std::map<Kind, Row> all{
        {Kind::Refused,              lost},
        {Kind::NameUnknown,          lost},
        {Kind::Unreachable,          lost},
        {Kind::TlsWrongName,         lost},
        {Kind::TlsExpired,           lost},
        {Kind::TlsUnknownAuthority,  lost},
        {Kind::ClosedBeforeReading,  lost},
        {Kind::ClosedAfterReading,   lost},
        {Kind::AnswerLost,           lost},
        {Kind::Reset,                lost},
        {Kind::CutHead,              lost},
        {Kind::CutBody,              lost},
        {Kind::DripHead,             lost},
        {Kind::DripBody,             lost},
        {Kind::Silent,               lost},
        {Kind::MovedForGood,         lost},
        {Kind::Found,                lost},
        {Kind::MovedForNow,          lost},
        {Kind::Unauthorised,         lost},
        {Kind::Forbidden,            lost},
        {Kind::NotFound,             lost},
        {Kind::ServerFault,          lost},
        {Kind::Unavailable,          lost},
        {Kind::OtherAnswer,          {AsSaid, Hollow, Hollow, Unnumbered, Done,     Done,     Done,  AsksNothing, AsksNothing}},
        {Kind::TwiceAnnounced,       harmless},
        {Kind::Empty,                unreadable},
        {Kind::HtmlPage,             unreadable},
        {Kind::OtherXml,             {Hollow, Hollow, Hollow, Unbooked,   Unbooked, Unbooked, Waits, AsksNothing, AsksNothing}},
        {Kind::WrongEncoding,        unreadable},
        {Kind::MissingElements,      {Hollow, Hollow, Hollow, Unnumbered, Done,     Done,     Done,  AsksNothing, AsksNothing}},
        {Kind::DoubledElements,      harmless},
        {Kind::AbsurdNumbers,        {AsSaid, AsSaid, Hollow, AsSaid,     Done,     Done,     Done,  AsksNothing, AsksNothing}},
        {Kind::TenThousandPositions, harmless},
        {Kind::FiveMegabytes,        harmless},
        {Kind::DiskFull,             brokenDisk},
        {Kind::DiskReadOnly,         brokenDisk},
        {Kind::DiskGone,             brokenDisk},
        {Kind::DiskSlow,             unaffected},
        {Kind::FileTruncated, {NoMeaning, NoMeaning, NoMeaning, NoMeaning, Stops, NoMeaning, Salvaged, NoMeaning, Stops}},
        {Kind::FileGarbage,   {NoMeaning, NoMeaning, NoMeaning, NoMeaning, Stops, NoMeaning, LostWithFile, NoMeaning, Stops}},
        {Kind::FileNewer,     {NoMeaning, NoMeaning, NoMeaning, NoMeaning, Stops, NoMeaning, Stops,    NoMeaning, Stops}},
        {Kind::ClockBack,            unaffected},
        {Kind::ClockForward,         unaffected},
        {Kind::ZoneChanged,          unaffected},
    };
    // clang-format on
    return all;
}

// Faults that last until a limit ends them; a delivery's is the host's own and long.
bool isSlow(Kind kind)
{
    return kind == Kind::Silent || kind == Kind::Unreachable || kind == Kind::DripHead
        || kind == Kind::DripBody;
}

} // namespace

const std::vector<Cell> &table()
{
    static const std::vector<Cell> cells = [] {
        std::vector<Cell> made;
        for (const Fault &fault : allFaults())
            for (const Operation operation : allOperations)
                made.push_back({fault, operation,
                    rows().at(fault.kind).at(static_cast<std::size_t>(operation))});
        return made;
    }();
    return cells;
}

QString reasonWithoutMeaning(const Fault &fault, Operation operation)
{
    return cellOf(fault.kind, operation).expected == Outcome::NoMeaning ? readAtStart : QString();
}

std::vector<Cell> eachFaultAndOperationOnce()
{
    std::vector<Cell> cells;
    std::size_t next = 0;
    for (const Fault &fault : allFaults()) {
        const auto isWanted = [&](Operation operation) {
            const Cell &cell = cellOf(fault.kind, operation);
            return cell.expected != Outcome::NoMeaning
                && !(isSlow(fault.kind) && operation == Operation::Delivery);
        };
        while (!isWanted(allOperations.at(next % allOperations.size())))
            ++next;
        cells.push_back(cellOf(fault.kind, allOperations.at(next++ % allOperations.size())));
    }
    return cells;
}

const Cell &cellOf(Kind kind, Operation operation)
{
    const auto found = std::find_if(table().begin(), table().end(),
        [&](const Cell &cell) { return cell.fault.kind == kind && cell.operation == operation; });
    if (found == table().end())
        throw std::logic_error("a fault that the table does not know");
    return *found;
}

} // namespace faults

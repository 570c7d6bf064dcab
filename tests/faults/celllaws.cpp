#include "tests/faults/celllaws.h"

#include "tests/restart/laws.h"

#include <chrono>

using namespace Qt::StringLiterals;

namespace faults::laws {

namespace {

using namespace std::chrono_literals;

// As in faults.ini; what is delivered has the host's own limit.
constexpr std::chrono::microseconds configuredLimit = 1s;
constexpr std::chrono::microseconds deliveryLimit = 15s;
constexpr std::chrono::microseconds grace = 500ms;

// What the till was told is all that it knows of these: its figures are not the service's.
bool isMisled(const Cell &cell)
{
    return cell.expected == Outcome::AsSaid || cell.expected == Outcome::Hollow
        || cell.expected == Outcome::Unnumbered;
}

// A till says back what the service has said last. What no service can have meant is refused by it
// as often as it is sent, so the cheque waits in the queue until a person looks.
bool isLeftInQueue(const Cell &cell)
{
    return cell.fault.kind == Kind::AbsurdNumbers
        && (cell.operation == Operation::Calculation || cell.operation == Operation::Points);
}

// Closing the shift ends with this status when it names a cheque that nobody has confirmed.
QStringList namedAtShiftsEnd(const restart::Books &books)
{
    constexpr int openEnds = 1;
    if (!books.ends.empty() && books.ends.back().status == openEnds)
        return {};
    return {u"the end of the shift names no cheque"_s};
}

} // namespace

QStringList oneRequestEach(int exchanges, int requests)
{
    if (requests <= exchanges)
        return {};
    return {u"%1 requests on the wire in %2 exchanges"_s.arg(requests).arg(exchanges)};
}

QStringList exchangesAreBounded(Operation operation, const MachineControl &control)
{
    const std::chrono::microseconds taken(control.longestMicroseconds.load());
    const auto limit = operation == Operation::Delivery ? deliveryLimit : configuredLimit;
    if (taken <= limit + grace)
        return {};
    return {u"an exchange took %1 ms"_s.arg(taken / 1ms)};
}

QStringList booksAgree(const Cell &cell, const restart::Books &books)
{
    const QStringList notOnce = restart::laws::everythingIsBookedOnce(books);
    if (isLeftInQueue(cell))
        return notOnce.isEmpty() || books.undelivered.size() != 1
            ? QStringList{u"the cheque does not wait in the queue"_s}
            : QStringList();
    if (cell.expected == Outcome::LostWithFile)
        return namedAtShiftsEnd(books);
    QStringList wrong = restart::laws::nothingIsLeftOver(books);
    if (cell.expected == Outcome::Unbooked)
        return notOnce.isEmpty() ? wrong << u"it was booked, which the table denies"_s : wrong;
    wrong += notOnce + restart::laws::balancesComeFromTransactions(books);
    if (!isMisled(cell))
        wrong += restart::laws::figuresAgree(books);
    return wrong;
}

} // namespace faults::laws

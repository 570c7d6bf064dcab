#include "tests/faults/outcome.h"

using namespace Qt::StringLiterals;

namespace faults {

QString wordOf(Outcome outcome)
{
    switch (outcome) {
    case Outcome::Done:
        return u"done"_s;
    case Outcome::AsksNothing:
        return u"asks nothing"_s;
    case Outcome::Offline:
        return u"offline"_s;
    case Outcome::Queued:
        return u"queued"_s;
    case Outcome::Refused:
        return u"refused"_s;
    case Outcome::KeptOpen:
        return u"kept open"_s;
    case Outcome::Waits:
        return u"waits"_s;
    case Outcome::Hollow:
        return u"hollow"_s;
    case Outcome::AsSaid:
        return u"as said"_s;
    case Outcome::Unnumbered:
        return u"unnumbered"_s;
    case Outcome::Unbooked:
        return u"**unbooked**"_s;
    case Outcome::Stops:
        return u"stops"_s;
    case Outcome::Salvaged:
        return u"salvaged"_s;
    case Outcome::LostWithFile:
        return u"**lost with the file**"_s;
    case Outcome::NoMeaning:
        break;
    }
    return u"–"_s;
}

QString meaningOf(Outcome outcome)
{
    switch (outcome) {
    case Outcome::Done:
        return u"as without the fault"_s;
    case Outcome::AsksNothing:
        return u"as without the fault: nothing is asked of the service, so the fault is not met"_s;
    case Outcome::Offline:
        return u"the cashier is told; the cheque goes on without the service and is queued when it is closed"_s;
    case Outcome::Queued:
        return u"the cashier is told; the document is closed, its message is on disk and is delivered later"_s;
    case Outcome::Refused:
        return u"the cashier is told; nothing has happened, and it can be tried again"_s;
    case Outcome::KeptOpen:
        return u"the cashier is told; the document stays open, and closing or cancelling can be tried again"_s;
    case Outcome::Waits:
        return u"the message stays in the queue for the next attempt"_s;
    case Outcome::Hollow:
        return u"what came passes for an answer that says nothing: no balance, no discounts, no points. The cheque goes on online"_s;
    case Outcome::AsSaid:
        return u"the till goes by the figures that came, whatever they are"_s;
    case Outcome::Unnumbered:
        return u"the service has booked the cheque, the till is closed and does not have the booking's number"_s;
    case Outcome::Unbooked:
        return u"what came passes for a success, so the document ends at the till; the service has booked nothing, and nothing is queued"_s;
    case Outcome::Stops:
        return u"the till ends with one line on standard error and status 2 or 3; what it had acknowledged is there at the next start, when the reason is gone"_s;
    case Outcome::Salvaged:
        return u"the damaged file is set aside and kept, what can be read of it goes on, and the till says so"_s;
    case Outcome::LostWithFile:
        return u"the damaged file is set aside and kept, and the till says so; nothing in it can be read any more, so its cheques are not delivered. `close-shift` names each of them"_s;
    case Outcome::NoMeaning:
        break;
    }
    return u"has no meaning there, see below"_s;
}

} // namespace faults

#pragma once

#include "tests/faults/fault.h"
#include "tests/faults/operation.h"
#include "tests/faults/outcome.h"

#include <QString>
#include <QStringList>

namespace faults {

/// A fault that strikes an operation, with what must come of it.
struct Cell
{
    Fault fault;
    Operation operation = Operation::Card;
    Outcome expected = Outcome::Done;

    /// `fault/operation`
    [[nodiscard]] QString name() const { return fault.name + u'/' + titleOf(operation); }
};

/// Wrongs that a control has a till do, or has done to it.
struct Control
{
    QString spoil; ///< of the till, see `spoilVariable`; empty: none
    bool isQueueThrownAway = false; ///< while the till is switched off behind the fault
    bool isClosedInstead = false; ///< no wrong: who could not cancel the cheque closes it
};

/// Sells a cheque up to the operation, lets the fault strike it, takes the fault away, gives the
/// operation again where it was not done, and brings the cheque to its end.
/// @return what is wrong, a sentence for each thing; nothing when all is as the rules want it.
QStringList wrongIn(const Cell &cell, const Control &control = {});

} // namespace faults

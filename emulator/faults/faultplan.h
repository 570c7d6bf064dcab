#pragma once

#include "emulator/faults/fault.h"

#include <deque>
#include <optional>

namespace emulator {

/// The faults that are still to come, in the order in which they were ordered.
class FaultPlan
{
public:
    void add(const Fault &fault);
    void refuse(const RefuseConnections &refusal);
    void clear();

    /// The first fault for the operation, counted down and gone when it is used up.
    std::optional<Fault> take(Operation operation);

    /// Whether the connection that has just come is to be closed; counts down.
    bool takeRefusal();

    const std::deque<Fault> &faults() const { return m_faults; }
    int refusals() const { return m_refusals; }

private:
    std::deque<Fault> m_faults;
    int m_refusals = 0;
};

} // namespace emulator

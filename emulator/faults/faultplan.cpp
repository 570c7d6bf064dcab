#include "emulator/faults/faultplan.h"

#include <algorithm>

namespace emulator {

void FaultPlan::add(const Fault &fault)
{
    m_faults.push_back(fault);
}

void FaultPlan::refuse(const RefuseConnections &refusal)
{
    m_refusals = refusal.count;
}

void FaultPlan::clear()
{
    m_faults.clear();
    m_refusals = 0;
}

std::optional<Fault> FaultPlan::take(Operation operation)
{
    const auto found = std::find_if(m_faults.begin(), m_faults.end(),
        [&](const Fault &fault) { return !fault.operation || *fault.operation == operation; });
    if (found == m_faults.end())
        return {};
    const Fault taken = *found;
    if (found->left && --*found->left == 0)
        m_faults.erase(found);
    return taken;
}

bool FaultPlan::takeRefusal()
{
    if (m_refusals == 0)
        return false;
    --m_refusals;
    return true;
}

} // namespace emulator

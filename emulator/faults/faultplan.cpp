#include "emulator/faults/faultplan.h"

#include "emulator/faults/faultwords.h"

#include <algorithm>

namespace emulator {

namespace {

// By the generator's own numbers: a distribution of the library may differ from another one's.
bool falls(std::mt19937 &dice, const Chance &chance)
{
    return dice() % Chance::whole < static_cast<std::uint_fast32_t>(chance.thousandths);
}

bool strikes(FaultPlan::Entry &entry, Operation operation)
{
    const Fault *fault = std::get_if<Fault>(&entry.fault);
    if (!fault || !entry.isOn || (fault->operation && *fault->operation != operation))
        return false;
    return !fault->chance || falls(entry.dice, *fault->chance);
}

} // namespace

void FaultPlan::add(const Fault &fault)
{
    m_entries.push_back({++m_lastId, true, fault});
    if (fault.chance)
        m_entries.back().dice.seed(fault.chance->seed);
}

void FaultPlan::add(const ConnectionFault &fault)
{
    std::erase_if(m_entries, [&](const Entry &entry) {
        const ConnectionFault *other = std::get_if<ConnectionFault>(&entry.fault);
        return other && other->kind == fault.kind;
    });
    m_entries.push_back({++m_lastId, true, fault});
}

void FaultPlan::clear()
{
    m_entries.clear();
}

std::deque<FaultPlan::Entry>::iterator FaultPlan::find(int id)
{
    return std::find_if(
        m_entries.begin(), m_entries.end(), [id](const Entry &entry) { return entry.id == id; });
}

bool FaultPlan::setOn(int id, bool isOn)
{
    const auto found = find(id);
    if (found == m_entries.end())
        return false;
    found->isOn = isOn;
    return true;
}

bool FaultPlan::remove(int id)
{
    const auto found = find(id);
    if (found == m_entries.end())
        return false;
    m_entries.erase(found);
    return true;
}

std::optional<Fault> FaultPlan::take(Operation operation)
{
    const auto found = std::find_if(m_entries.begin(), m_entries.end(),
        [operation](Entry &entry) { return strikes(entry, operation); });
    if (found == m_entries.end())
        return {};
    auto &fault = std::get<Fault>(found->fault);
    Fault taken = fault;
    if (fault.left && --*fault.left == 0)
        m_entries.erase(found);
    return taken;
}

std::optional<ConnectionFault> FaultPlan::takeForConnection()
{
    const auto found = std::find_if(m_entries.begin(), m_entries.end(), [](const Entry &entry) {
        return entry.isOn && std::holds_alternative<ConnectionFault>(entry.fault);
    });
    if (found == m_entries.end())
        return {};
    auto &fault = std::get<ConnectionFault>(found->fault);
    ConnectionFault taken = fault;
    if (--fault.left == 0)
        m_entries.erase(found);
    return taken;
}

QString faultWords(const FaultPlan::Entry &entry)
{
    return std::visit(
        [](const auto &fault) { return faultWords(FaultCommand(fault)); }, entry.fault);
}

} // namespace emulator

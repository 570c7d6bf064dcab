#pragma once

#include "emulator/faults/fault.h"

#include <deque>
#include <optional>
#include <random>
#include <variant>

namespace emulator {

/// The faults that are still to come, in the order in which they were ordered.
class FaultPlan
{
public:
    struct Entry
    {
        int id = 0; ///< never used again
        bool isOn = true; ///< switched off it waits, and strikes nobody
        std::variant<Fault, ConnectionFault> fault;
        std::mt19937 dice = {}; ///< of a fault that strikes by chance
    };

    void add(const Fault &fault);
    /// Takes the place of the one of its kind, if there is one.
    void add(const ConnectionFault &fault);
    void clear();

    /// Switches a fault on or off. False: there is none of that id.
    bool setOn(int id, bool isOn);
    /// Takes a fault out. False: there is none of that id.
    bool remove(int id);

    /// The first fault that strikes the operation, counted down and gone when it is used up.
    std::optional<Fault> take(Operation operation);
    /// The first fault that strikes the connection that has just come, counted down likewise.
    std::optional<ConnectionFault> takeForConnection();

    const std::deque<Entry> &entries() const { return m_entries; }

private:
    std::deque<Entry>::iterator find(int id);

    std::deque<Entry> m_entries;
    int m_lastId = 0;
};

/// What `Entry::fault` is in words.
QString faultWords(const FaultPlan::Entry &entry);

} // namespace emulator

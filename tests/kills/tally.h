#pragma once

#include "tests/kills/plan.h"

#include <QString>

#include <chrono>
#include <map>

namespace kills {

/// What happened, counted.
struct Tally
{
    int sales = 0; ///< closed
    int returns = 0; ///< closed
    int cancelled = 0;
    std::map<restart::Manner, int> tillsKilled;
    std::map<restart::Manner, int> deliverersKilled;
    int answersLostActedUpon = 0; ///< by faults, kills not counted
    int answersLostNotActedUpon = 0;
    int exchanges = 0; ///< of the service
    int messages = 0; ///< that were queued
    int attempts = 0; ///< to deliver them
    int parked = 0; ///< messages that a person had to take up again
    /// Documents whose message the service does not take, by the code that it answers.
    std::map<int, int> waitingForPerson;
    std::chrono::microseconds tillsLongest{};
    std::chrono::microseconds deliverersLongest{};

    void add(const Tally &other);
    [[nodiscard]] int kills() const;
};

} // namespace kills

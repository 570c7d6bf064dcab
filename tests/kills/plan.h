#pragma once

#include "tests/kills/dice.h"
#include "tests/restart/kill.h"

#include <optional>
#include <vector>

namespace kills {

/// Who is killed.
enum class Victim
{
    Till,
    Deliverer
};

/// When somebody is killed during a cheque, or in the delivery behind it.
struct Strike
{
    Victim victim = Victim::Till;
    restart::Manner manner = restart::Manner::After;
    int occasion = 1; ///< which of the exchanges or writes from then on
    quint32 place = 0; ///< draws the command at which a till is killed
};

/// What a whole run is to do.
struct Plan
{
    quint32 cheques = 0;
    quint32 kills = 0; ///< at most as many as there are cheques
    quint32 seed = 0;
    std::optional<quint32> onlyDay; ///< of the days, for a look at it
};

/// One of the days that a run is made of, each in a shop of its own.
struct DayPlan
{
    quint32 seed = 0;
    quint32 day = 0; ///< from 0
    std::vector<bool> isStruck; ///< for each cheque whether somebody is killed during it
};

/// Spreads the kills evenly over the cheques, and the cheques over days.
std::vector<DayPlan> daysOf(const Plan &plan);

/// Draws whom a kill strikes, and when.
Strike strike(Dice &dice);

} // namespace kills

#include "tests/kills/plan.h"

#include <array>

namespace kills {

namespace {

using restart::Manner;

// The service tells of its last thousand bookings and five hundred exchanges.
constexpr quint32 chequesOfDay = 20;

constexpr quint32 strikesDeliverer = 25; // percent
constexpr quint32 strikesSecondExchange = 10; // percent
constexpr int greatestWrite = 4;
constexpr quint32 places = 1'000'000;

// At rest it is killed often enough where what is drawn does not come.
constexpr std::array manners{Manner::Asked, Manner::Acted, Manner::Acted, Manner::Answered,
    Manner::Written, Manner::Written};

// So that so many of the first cheques have just as many kills as are due by then.
bool isStruck(const Plan &plan, quint64 cheque)
{
    return (cheque + 1) * plan.kills / plan.cheques > cheque * plan.kills / plan.cheques;
}

} // namespace

std::vector<DayPlan> daysOf(const Plan &plan)
{
    std::vector<DayPlan> days;
    for (quint32 cheque = 0; cheque < plan.cheques; ++cheque) {
        if (cheque % chequesOfDay == 0)
            days.push_back({plan.seed, cheque / chequesOfDay, {}});
        days.back().isStruck.push_back(isStruck(plan, cheque));
    }
    if (plan.onlyDay)
        std::erase_if(days, [&](const DayPlan &day) { return day.day != *plan.onlyDay; });
    return days;
}

Strike strike(Dice &dice)
{
    Strike strike;
    strike.victim = dice.falls(strikesDeliverer) ? Victim::Deliverer : Victim::Till;
    strike.manner = dice.oneOf(manners);
    strike.occasion = strike.manner == Manner::Written
        ? 1 + static_cast<int>(dice.below(greatestWrite))
        : 1 + static_cast<int>(dice.falls(strikesSecondExchange));
    strike.place = dice.below(places);
    return strike;
}

} // namespace kills

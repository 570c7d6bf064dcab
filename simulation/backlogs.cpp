#include "simulation/backlogs.h"

#include "simulation/chance.h"

#include <cmath>

namespace simulation {

namespace {

using Hours = std::chrono::duration<double, std::chrono::hours::period>;

// Gaps between customers who come by chance are distributed exponentially.
Hours gap(Chance &chance, double chequesPerHour)
{
    return Hours(-std::log1p(-chance.next()) / chequesPerHour);
}

} // namespace

std::vector<Backlog> backlogsOf(const Scenario &scenario)
{
    Chance chance(scenario.seed);
    std::vector<Backlog> backlogs(static_cast<std::size_t>(scenario.tills));
    for (Backlog &backlog : backlogs) {
        Hours closed = gap(chance, scenario.chequesPerHour);
        for (; closed < scenario.outage; closed += gap(chance, scenario.chequesPerHour))
            backlog.append(std::chrono::floor<Moment>(closed));
    }
    return backlogs;
}

} // namespace simulation

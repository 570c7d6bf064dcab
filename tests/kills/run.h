#pragma once

#include "tests/kills/day.h"
#include "tests/kills/plan.h"

#include <functional>
#include <vector>

namespace kills {

/// What came of a whole run.
struct RunReport
{
    Plan plan;
    Tally tally;
    std::map<QString, int> findings; ///< how many of each law
    QStringList sentences; ///< each finding with the day that it is of, and where its folder is
    std::chrono::seconds duration{};
};

/// How far a run has come.
struct Progress
{
    std::size_t days = 0;
    std::size_t ofDays = 0;
    int kills = 0;
    std::size_t findings = 0;
};

/// Goes through all days of a plan, as many at a time as the machine has processors.
/// @param keep leaves the folders of the days where something was found.
/// @param tell called after each day, one call at a time.
RunReport run(const Plan &plan, bool keep, const std::function<void(const Progress &)> &tell);

/// The report as Markdown: what was done, and each law with how often it was broken.
QString markdown(const RunReport &report);

} // namespace kills

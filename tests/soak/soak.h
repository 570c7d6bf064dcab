#pragma once

#include "tests/soak/process.h"
#include "tests/soak/slope.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

namespace soak {

/// How much is sold.
struct Plan
{
    int cheques = 0; ///< at least twice `settling`
    int settling = 0; ///< cheques after which nothing may grow any more
    quint32 seed = 0;
    /// What the till is made to lose at its exchanges, a value of the variable that spoils it;
    /// null: nothing.
    const char *leak = nullptr;
};

/// What one till came to.
struct Report
{
    Plan plan;
    ProcessState settled; ///< behind the first cheques
    ProcessState ended; ///< behind the last one
    int faults = 0; ///< cheques that met one
    std::vector<double> microseconds; ///< of the processor for a cheque, mean of each block
    std::chrono::seconds duration{};

    [[nodiscard]] qint64 growth() const { return ended.memory - settled.memory; }
    [[nodiscard]] Slope slope() const { return slopeOf(microseconds); }
};

constexpr qint64 allowedGrowth = 2 * 1024 * 1024; // bytes
constexpr int chequesOfBlock = 500;

/// Sells cheques drawn by lot in one till process, one in a hundred with a fault, and looks at the
/// process meanwhile.
/// @param tell called behind each block of cheques with how many were sold.
/// @throws std::runtime_error when the till ends.
Report run(const Plan &plan, const std::function<void(int)> &tell);

/// What is wrong, a sentence for each thing.
/// @param withTime whether the time of a cheque counts, which a short run says nothing about.
QStringList violations(const Report &report, bool withTime);

/// The report as Markdown.
QString markdown(const Report &report);

} // namespace soak

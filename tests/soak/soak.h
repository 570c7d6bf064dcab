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
    int cheques = 0; ///< whole blocks more than `settling`, at least three
    int settling = 0; ///< cheques after which nothing may grow any more
    quint32 seed = 0;
    /// What the till is made to lose at its exchanges, a value of the variable that spoils it;
    /// null: nothing.
    const char *leak = nullptr;
};

/// Of the processor for a cheque, means in microseconds.
struct ChequeTimes
{
    double old = 0.0; ///< in the till that sells them all
    double fresh = 0.0; ///< meanwhile in one that has sold few: how slow the machine is

    [[nodiscard]] double ratio() const { return old / fresh; }
};

/// What one till came to.
struct Report
{
    Plan plan;
    ProcessState settled; ///< behind the first cheques
    ProcessState ended; ///< behind the last one
    int faults = 0; ///< cheques that met one
    std::vector<ChequeTimes> times; ///< of each block
    std::chrono::seconds duration{};

    [[nodiscard]] qint64 growth() const { return ended.memory - settled.memory; }
    /// Of the ratio, from block to block.
    [[nodiscard]] Slope slope() const;
};

constexpr qint64 allowedGrowth = 2 * 1024 * 1024; // bytes
constexpr int chequesOfBlock = 500;
constexpr int oldPerFresh = 10; ///< cheques, while the fresh till sells one
constexpr int fewestBlocks = 3; ///< that show a slope

/// Sells cheques drawn by lot in one till process, one in a hundred with a fault, and looks at the
/// process meanwhile. Beside each block a fresh till sells a few, always the same ones: the speed
/// of the machine changes within the hours, and would be taken for the till's.
/// @param tell called behind each block of cheques with how many were sold.
/// @throws std::runtime_error when the till ends.
Report run(const Plan &plan, const std::function<void(int)> &tell);

/// What is wrong, a sentence for each thing.
/// @param withTime whether the time of a cheque counts, which a short run says nothing about.
QStringList violations(const Report &report, bool withTime);

/// The report as Markdown.
QString markdown(const Report &report);

} // namespace soak

#pragma once

#include "simulation/measures.h"
#include "simulation/scenario.h"

#include <ostream>
#include <string>

namespace simulation {

/// The table of results on a terminal, a line at a time, as wide as the names need.
class Table
{
public:
    /// @param nameWidth characters of the longest policy's name.
    /// Both belong to the caller, the stream must outlive this object.
    Table(std::ostream &out, std::size_t nameWidth);

    /// Says what happens to the tills, and what the columns mean.
    void addScenario(const Scenario &scenario);
    void addRow(const std::string &policy, const Measures &measures, const Scenario &scenario);

private:
    void addHeadings();

    std::ostream &m_out;
    int m_nameWidth;
};

} // namespace simulation

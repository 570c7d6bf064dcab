#include "simulation/table.h"

#include <cmath>
#include <iomanip>
#include <sstream>

namespace simulation {

namespace {

constexpr int columnWidth = 11;
constexpr double inPercent = 100;
using Minutes = std::chrono::duration<double, std::ratio<60>>;

std::string text(double value, int decimals)
{
    std::ostringstream out;
    out << std::fixed << std::setprecision(decimals) << value;
    return out.str();
}

std::string minutes(const std::optional<Moment> &span)
{
    return span ? text(Minutes(*span).count(), 1) : "-";
}

double deliveredShare(const Measures &measures)
{
    return measures.messages() == 0
        ? 1
        : static_cast<double>(measures.delivered()) / static_cast<double>(measures.messages());
}

} // namespace

Table::Table(std::ostream &out, std::size_t nameWidth)
    : m_out(out)
    , m_nameWidth(static_cast<int>(nameWidth))
{ }

void Table::addScenario(const Scenario &scenario)
{
    m_out << scenario.tills << " tills, away for " << text(Minutes(scenario.outage).count(), 0)
          << " minutes, " << text(scenario.service.capacity, 1)
          << " requests a second answered, at most " << scenario.service.queueLimit << " waiting\n";
    addHeadings();
}

void Table::addHeadings()
{
    m_out << std::left << std::setw(m_nameWidth) << "" << std::right;
    for (const char *heading :
        {"delivered", "empty", "peak", "peak by", "refused", "wasted by", "longest", "last till"})
        m_out << std::setw(columnWidth) << heading;
    m_out << '\n' << std::left << std::setw(m_nameWidth) << "policy" << std::right;
    for (const char *unit :
        {"%", "min", "req./s", "capacity", "%", "cheque", "wait, min", "by median"})
        m_out << std::setw(columnWidth) << unit;
    m_out << '\n';
}

void Table::addRow(const std::string &policy, const Measures &measures, const Scenario &scenario)
{
    const auto unfairness = measures.unfairness();
    m_out << std::left << std::setw(m_nameWidth) << policy << std::right;
    for (const std::string &cell :
        {text(std::floor(inPercent * deliveredShare(measures)), 0), minutes(measures.emptyAfter()),
            std::to_string(measures.peak()), text(measures.peak() / scenario.service.capacity, 1),
            text(inPercent * measures.refusedShare(), 1), text(measures.wastedPerMessage(), 2),
            minutes(measures.longestWait()), unfairness ? text(*unfairness, 2) : "-"})
        m_out << std::setw(columnWidth) << cell;
    m_out << std::endl;
}

} // namespace simulation

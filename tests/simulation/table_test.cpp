// The table on the terminal.

#include "simulation/table.h"

#include <gmock/gmock.h>

#include <sstream>

using namespace simulation;
using namespace std::chrono_literals;
using testing::ElementsAre;

namespace {

/// Two tills with one message each; the service returns at 0 and answers two requests a second.
class TableTest : public testing::Test
{
protected:
    TableTest()
        : m_measures(backlogs(), 0ms)
    {
        m_scenario.tills = 2;
        m_scenario.outage = 90min;
        m_scenario.service = {2, 100ms, 5};
        for (const bool refused : {false, false, true})
            m_measures.noteRequest(0ms, refused);
        m_measures.noteDelivery(0, 1min, true);
    }

    static std::vector<Backlog> backlogs()
    {
        std::vector<Backlog> both(2);
        for (Backlog &backlog : both)
            backlog.append(0ms);
        return both;
    }
    std::vector<std::string> cells()
    {
        std::stringstream out;
        Table(out, 6).addRow("chosen", m_measures, m_scenario);
        return {std::istream_iterator<std::string>(out), {}};
    }

    Scenario m_scenario;
    Measures m_measures;
};

TEST_F(TableTest, TheScenarioStandsAboveIt)
{
    std::ostringstream out;
    Table(out, 6).addScenario(m_scenario);
    EXPECT_THAT(out.str(),
        testing::StartsWith(
            "2 tills, away for 90 minutes, 2.0 requests a second answered, at most 5 "
            "waiting\n"));
    EXPECT_THAT(out.str(), testing::HasSubstr("\npolicy"));
}

TEST_F(TableTest, ARowHoldsEveryMeasure)
{
    m_measures.noteDelivery(1, 3min, true);
    EXPECT_THAT(
        cells(), ElementsAre("chosen", "100", "3.0", "3", "1.5", "33.3", "0.50", "3.0", "3.00"));
}

TEST_F(TableTest, WhatIsNotOverIsADash)
{
    EXPECT_THAT(cells(), ElementsAre("chosen", "50", "-", "3", "1.5", "33.3", "2.00", "-", "-"));
}

TEST_F(TableTest, HeadingsAndRowsAreEquallyWide)
{
    std::stringstream out;
    Table table(out, 20);
    table.addScenario(m_scenario);
    table.addRow("chosen", m_measures, m_scenario);
    std::string line;
    std::getline(out, line);
    while (std::getline(out, line))
        EXPECT_EQ(line.size(), 20U + 8 * 11) << line;
}

} // namespace

// The plot, as the picture's elements.

#include "simulation/plot.h"

#include <QDomDocument>
#include <QStringList>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;
using namespace simulation;
using namespace std::chrono_literals;

namespace {

/// One till with two messages; a request a second, each of which delivers one.
class PlotTest : public testing::Test
{
protected:
    PlotTest()
    {
        m_scenario.tills = 1000;
        m_scenario.outage = 1h;
        m_scenario.service.capacity = 25;
    }

    void givenCurve(const std::string &policy)
    {
        std::vector<Backlog> backlogs(1);
        backlogs[0].append(0ms);
        backlogs[0].append(0ms);
        Measures measures(backlogs, 0ms);
        for (const Moment at : {0s, 1s}) {
            measures.noteRequest(at, false);
            measures.noteDelivery(0, at, at == 1s);
        }
        m_curves.push_back({policy, measures});
    }
    void whenPlotted(const std::optional<Moment> &end = {})
    {
        QDomDocument document;
        ASSERT_TRUE(
            document.setContent(QByteArray::fromStdString(plotOf(m_scenario, m_curves, end))));
        const auto words = document.elementsByTagName(u"text"_s);
        for (int i = 0; i < words.size(); ++i)
            m_texts << words.at(i).toElement().text();
        const auto lines = document.elementsByTagName(u"polyline"_s);
        for (int i = 0; i < lines.size(); ++i)
            m_points << lines.at(i).toElement().attribute(u"points"_s).trimmed();
    }

    Scenario m_scenario;
    std::vector<Curve> m_curves;
    QStringList m_texts;
    QStringList m_points;
};

TEST_F(PlotTest, NamesTheScenarioTheAxesAndTheCurves)
{
    givenCurve("chosen");
    givenCurve("fast & <furious>");
    whenPlotted();

    for (const auto &text : {u"1000 tills after an outage of 60 minutes, the service answers 25 "
                             u"requests a second"_s,
             u"Delivered, % of the backlog"_s, u"minutes since the service is back"_s, u"chosen"_s,
             u"fast & <furious>"_s, u"capacity"_s})
        EXPECT_TRUE(m_texts.contains(text)) << qPrintable(text);
}

TEST_F(PlotTest, HasTwoLinesForEachPolicy)
{
    givenCurve("one");
    givenCurve("other");
    whenPlotted();
    EXPECT_EQ(m_points.size(), 4);
}

// Left edge to right edge in two steps; from nothing over a half to everything.
TEST_F(PlotTest, WhatIsDeliveredRisesFromNothingToEverything)
{
    givenCurve("chosen");
    whenPlotted();
    EXPECT_EQ(m_points.value(0), u"80.0,370.0 435.0,215.0 790.0,60.0"_s);
}

// One a second is the bottom of the lower panel.
TEST_F(PlotTest, RatesAreThoseOfTheSeconds)
{
    givenCurve("chosen");
    whenPlotted();
    EXPECT_EQ(m_points.value(1), u"80.0,700.0 435.0,700.0"_s);
}

TEST_F(PlotTest, EndsWhereItIsTold)
{
    givenCurve("chosen");
    whenPlotted(1s);
    EXPECT_EQ(m_points.value(0), u"80.0,370.0 790.0,215.0"_s);
}

TEST_F(PlotTest, AnEmptyBacklogIsDrawnToo)
{
    m_curves.push_back({"chosen", Measures({}, 0ms)});
    whenPlotted();
    EXPECT_FALSE(m_points.join(u' ').contains(u"nan"_s));
}

} // namespace

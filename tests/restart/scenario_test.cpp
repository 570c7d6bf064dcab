// Scripts as the restart test reads them.

#include "tests/restart/scenario.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace restart {

namespace {

class ScenarioTest : public testing::Test
{
public:
    void givenScript(const QString &name, const QByteArray &text)
    {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }

    QTemporaryDir folder;
};

TEST_F(ScenarioTest, KeepsCommandsWithTheirLinesAndLeavesOutTheRest)
{
    const Scenario scenario = readScenario(
        u"one"_s, u"# A remark.\n\nadd 1001 2 # more\nexpect result == null\nclose\n"_s);
    ASSERT_EQ(scenario.commands.size(), 2u);
    EXPECT_EQ(scenario.commands[0].line, 3);
    EXPECT_EQ(scenario.commands[0].argument(2), u"2"_s);
    EXPECT_EQ(scenario.commands[1].line, 5);
    EXPECT_EQ(scenario.commands[1].name(), u"close"_s);
}

TEST_F(ScenarioTest, PartsGoOnWhereTheScriptEnds)
{
    givenScript(u"day.till"_s, "add 1001\n");
    givenScript(u"day.2.till"_s, "total\n");
    givenScript(u"day.3.till"_s, "close\n");
    givenScript(u"other.till"_s, "sale\n");
    givenScript(u"other.ini"_s, "[Till]\n");
    const auto scenarios = scenariosIn(folder.path());
    ASSERT_EQ(scenarios.size(), 2u);
    EXPECT_EQ(scenarios[0].name, u"day"_s);
    ASSERT_EQ(scenarios[0].commands.size(), 3u);
    EXPECT_EQ(scenarios[0].commands[2].name(), u"close"_s);
    EXPECT_EQ(scenarios[0].commands[2].line, 3);
    EXPECT_EQ(scenarios[0].folder, folder.path());
    EXPECT_EQ(scenarios[1].name, u"other"_s);
}

} // namespace

} // namespace restart

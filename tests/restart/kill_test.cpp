// Which kills there are, and which of them are the sample.

#include "tests/restart/kill.h"
#include "tests/support/printers.h"

#include <QRegularExpression>
#include <QSet>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace restart {

namespace {

QStringList namesOf(const std::vector<KillCase> &cases)
{
    QStringList names;
    for (const KillCase &one : cases)
        names.append(one.name());
    return names;
}

const Scenario scenario = readScenario(u"two"_s, u"# Two commands.\nadd 1001\n\ntotal\n"_s);

TEST(KillTest, EveryCommandIsKilledAfterItAndAtEachExchangeAndWrite)
{
    EXPECT_EQ(namesOf(killsOf(scenario, {{0, 1}, {2, 0}})),
        QStringList({u"two:2:after"_s, u"two:2:written:1"_s, u"two:4:after"_s, u"two:4:asked:1"_s,
            u"two:4:acted:1"_s, u"two:4:answered:1"_s, u"two:4:asked:2"_s, u"two:4:acted:2"_s,
            u"two:4:answered:2"_s}));
}

TEST(KillTest, PointsThatAreNotPaidAgainAreKillsOfTheirOwn)
{
    const Scenario points = readScenario(u"paid"_s, u"points 5"_s);
    const QStringList names = namesOf(killsOf(points, {{1, 1}}));
    EXPECT_EQ(names.size(), 9);
    EXPECT_EQ(names.last(), u"paid:1:written:1:given-up"_s);
    EXPECT_EQ(names.filter(u"given-up"_s).size(), 4);
}

TEST(KillTest, TheSampleHoldsEachMannerOfEachScenarioOnce)
{
    const Scenario other = readScenario(u"other"_s, u"add 1001\nadd 1002"_s);
    auto cases = killsOf(scenario, {{0, 2}, {2, 2}});
    const auto more = killsOf(other, {{0, 0}, {0, 0}});
    cases.insert(cases.end(), more.begin(), more.end());

    const QStringList names = namesOf(sampleOf(cases));
    EXPECT_EQ(names.size(), 6);
    for (const QString &manner : {u"two:\\d:after"_s, u"two:4:asked"_s, u"two:4:acted"_s,
             u"two:4:answered"_s, u"two:\\d:written"_s, u"other:\\d:after"_s})
        EXPECT_EQ(names.filter(QRegularExpression(manner)).size(), 1) << manner.toStdString();
}

TEST(KillTest, TheSampleIsTheSameEveryTime)
{
    const auto cases = killsOf(scenario, {{3, 5}, {3, 5}});
    EXPECT_EQ(namesOf(sampleOf(cases)), namesOf(sampleOf(cases)));
}

} // namespace

} // namespace restart

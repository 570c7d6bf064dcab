// Services that are wrong in one rule are caught at it, and one that is wrong in none is not.

#include "tests/till/accept/runfixture.h"
#include "tests/till/accept/wrongs.h"

using namespace Qt::StringLiterals;
using namespace till::accept;

namespace {

class WrongServiceTest : public RunFixture, public testing::WithParamInterface<Wrong>
{ };

TEST_P(WrongServiceTest, IsCaught)
{
    const WrongService wrong(url, GetParam().change());
    const Report report = whenRun(usualSettings(wrong.url()));

    QStringList expected = GetParam().rules;
    expected.sort();
    EXPECT_EQ(failedRules(report).join(u' ').toStdString(), expected.join(u' ').toStdString());
    EXPECT_EQ(report.isClean(), !GetParam().leavesTraces);
    if (!GetParam().leavesTraces) {
        EXPECT_EQ(balance(), 500);
        EXPECT_EQ(report.takenBack, report.booked);
    }
}

INSTANTIATE_TEST_SUITE_P(Every, WrongServiceTest, testing::ValuesIn(wrongs()),
    [](const auto &wrong) { return wrong.param.name; });

class RightServiceTest : public RunFixture
{ };

TEST_F(RightServiceTest, BehindARelayThatChangesNothingPasses)
{
    const WrongService relay(
        url, [](const QByteArray &request, const WrongService::Ask &ask) { return ask(request); });
    const Report report = whenRun(usualSettings(relay.url()));
    EXPECT_TRUE(failedRules(report).isEmpty()) << qPrintable(failedRules(report).join(u' '));
    EXPECT_TRUE(report.isClean());
}

// Only wrong credentials need a service that asks for them: they have a test of their own.
TEST_F(RightServiceTest, EveryRuleIsBrokenByOneOfTheWrongServices)
{
    QStringList caught{u"authorisation"_s};
    for (const Wrong &wrong : wrongs())
        caught += wrong.rules;
    for (const Rule &rule : acceptance.rules)
        EXPECT_TRUE(caught.contains(rule.id)) << qPrintable(rule.id);
}

} // namespace

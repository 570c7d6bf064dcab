// Fifty cheques while the service cannot be reached, or does not answer: with the breaker set few
// of them wait for it.

#include "tests/faults/sale.h"
#include "tests/faults/stage.h"
#include "tests/restart/laws.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace faults {

namespace {

constexpr int cheques = 50;
constexpr int failures = 3;
const QByteArray breaker = "[RestClient]\nbreakerFailures=3\nbreakerSeconds=600\n";

void sell(Stage &stage, int count)
{
    for (int cheque = 0; cheque < count; ++cheque)
        for (const QString &command : {u"card 2900000000017"_s, u"add 1004"_s, u"close"_s})
            stage.must(command);
}

QString violationsBehind(Stage &stage)
{
    stage.heal();
    stage.endTill();
    stage.startTill();
    bringToItsEnd(stage);
    return restart::laws::violations(stage.books()).join(u'\n');
}

class OutageWithBreaker : public testing::TestWithParam<Kind>
{ };

TEST_P(OutageWithBreaker, FewChequesWaitAndAllAreBookedOnceAfterwards)
{
    Stage stage(false);
    stage.configure(breaker);
    stage.startTill();
    stage.strike(GetParam());
    sell(stage, cheques);
    EXPECT_EQ(stage.machine().control().exchanges, failures);
    EXPECT_EQ(stage.undelivered().size(), cheques);
    EXPECT_EQ(violationsBehind(stage).toStdString(), "");
}

// The silent one accepts connections all the time: that alone says nothing of it.
INSTANTIATE_TEST_SUITE_P(Outages, OutageWithBreaker,
    testing::Values(Kind::Unreachable, Kind::Silent, Kind::Unavailable),
    [](const testing::TestParamInfo<Kind> &kind) {
        return kind.param == Kind::Unreachable ? "unreachable"
            : kind.param == Kind::Silent       ? "silent"
                                               : "unavailable";
    });

TEST(OutageTest, WithoutTheBreakerEachOfThemAsks)
{
    Stage stage(false);
    stage.startTill();
    stage.strike(Kind::Refused);
    sell(stage, failures + 2);
    EXPECT_EQ(stage.machine().control().exchanges, failures + 2);
    EXPECT_EQ(violationsBehind(stage).toStdString(), "");
}

} // namespace

} // namespace faults
